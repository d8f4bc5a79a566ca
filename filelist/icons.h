#pragma once
// Icons of the entries: eight of the program's own, the rest from the shell, fetched once and kept.

#include <string_view>
#include <vector>

#include "common/text.h"
#include "filelist/icon_rules.h"
#include "platform/handles.h"

/// The images already fetched, found by their keys without regard to case.
class IconCache {
  public:
    /// The image kept under `key`, or -1.
    int Find(const wchar_t* key) const;
    /// Keeps an image; the first one kept under a key stays.
    void Add(const wchar_t* key, int image);
    void Clear() { records_.clear(); }

  private:
    struct Record {
        OwnedText key;
        int image = 0;
    };
    std::vector<Record> records_; // in the order of their keys
};

/// One image list, large (32 pixels) or small (16).
class IconSet {
  public:
    /// Makes the image list anew with the fixed images alone.
    void BuildIconSet(bool large);
    /// Gives the images back.
    void Discard() { images_.Reset(); }
    /// The image of an entry, fetched from the shell when its kind is met for the first time.
    int IconIndexFor(std::wstring_view name, std::wstring_view folder, DWORD attributes);
    /// Replaces the fetched image that `path` has by the shell's current one.
    void RefreshFor(const Path& path);
    HIMAGELIST Images() const { return images_.Get(); }

  private:
    IconHandle ShellIcon(const wchar_t* path) const;

    ImageListHandle images_;
    bool large_ = false;
    IconCache cache_;
};
