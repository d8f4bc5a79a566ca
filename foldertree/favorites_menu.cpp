#include "foldertree/favorites_menu.h"

#include "common/menu_text.h"
#include "platform/handles.h"
#include "resources/resource.h"

namespace {

constexpr int fixedEntries = 2; // "Add" and "Organize"

/// Goes down into the folders with one path, one scratch path and one record: the phone's stack is small.
class MenuBuilder {
  public:
    MenuBuilder(const Path& folder, std::vector<OwnedText>& files) : path_(folder), files_(files) {}

    /// Appends what is in the current folder to `menu`, behind a separator.
    void AddTop(HMENU menu) {
        if (!FindFirst())
            return;
        AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
        AddEntries(menu);
    }

  private:
    FindHandle FindFirst() {
        return FindHandle(scratch_.AssignPattern(path_.View()) ? ce::FindFirstFileW(scratch_.Text(), &found_)
                                                               : INVALID_HANDLE_VALUE);
    }
    bool FoundFolder() const { return (found_.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0; }

    /// A link of the host may lead back to where it lies.
    bool FoundLink() const { return (found_.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0; }

    void AddEntries(HMENU menu) {
        if (const FindHandle find = FindFirst()) {
            do {
                if (FoundFolder() && !FoundLink())
                    AddFolder(menu);
            } while (ce::FindNextFileW(find.Get(), &found_));
        }
        if (const FindHandle find = FindFirst()) {
            do {
                if (!FoundFolder())
                    AddFile(menu);
            } while (ce::FindNextFileW(find.Get(), &found_));
        }
    }

    void AddFolder(HMENU menu) {
        const std::size_t length = path_.Length();
        if (!path_.Append(L"\\"))
            return;
        if (path_.Append(found_.cFileName) && FindFirst())
            AddPopup(menu);
        path_.Truncate(length);
    }

    void AddPopup(HMENU menu) {
        MenuHandle popup(CreatePopupMenu());
        AddEntries(popup.Get());
        const OwnedText text = MenuTextOf(LeafOf(path_.View()));
        if (AppendMenuW(menu, MF_POPUP | MF_STRING, reinterpret_cast<UINT_PTR>(popup.Get()), text.get()))
            popup.Release();
    }

    void AddFile(HMENU menu) {
        const std::wstring_view name = found_.cFileName;
        if (ExtensionOf(name).empty() || files_.size() >= favoriteLimit ||
            !scratch_.AssignChild(path_.View(), name))
            return;
        const OwnedText text = MenuTextOf(name.substr(0, name.size() - ExtensionOf(name).size()));
        if (AppendMenuW(menu, MF_STRING, IDM_FAVORITE_FIRST + files_.size(), text.get()))
            files_.push_back(CopyText(scratch_.View()));
    }

    Path path_;
    Path scratch_;
    WIN32_FIND_DATAW found_{};
    std::vector<OwnedText>& files_;
};

} // namespace

void FavoritesMenu::buildFavoritesMenu(HMENU menu, const Path& folder) {
    MenuBuilder(folder, files_).AddTop(menu);
}

void FavoritesMenu::clearFavoritesMenu(HMENU menu) {
    while (DeleteMenu(menu, fixedEntries, MF_BYPOSITION)) {
    }
    files_.clear();
}

const wchar_t* FavoritesMenu::FileOf(int index) const {
    return index >= 0 && index < Count() ? files_[static_cast<std::size_t>(index)].get() : nullptr;
}
