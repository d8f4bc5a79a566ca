#include <string>
#include <vector>

#include "app/settings_store.h"
#include "platform/ce_api.h"
#include "tests/unit/app/stored_values.h"

namespace {

class CommandBarStore : public StoredValues {
  protected:
    HWND combo_ = CreateWindowExW(0, L"COMBOBOX", L"", CBS_DROPDOWN, 0, 0, 100, 100, nullptr, nullptr,
                                  GetModuleHandleW(nullptr), nullptr);

    ~CommandBarStore() override { DestroyWindow(combo_); }

    void Add(const std::wstring& text) {
        SendMessageW(combo_, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
    }

    std::vector<std::wstring> Entries() const {
        std::vector<std::wstring> entries;
        const int count = static_cast<int>(SendMessageW(combo_, CB_GETCOUNT, 0, 0));
        for (int index = 0; index < count; ++index) {
            const auto length = SendMessageW(combo_, CB_GETLBTEXTLEN, static_cast<WPARAM>(index), 0);
            std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
            SendMessageW(combo_, CB_GETLBTEXT, static_cast<WPARAM>(index),
                         reinterpret_cast<LPARAM>(text.data()));
            text.pop_back();
            entries.push_back(text);
        }
        return entries;
    }

    static void StoreBands(const std::vector<DWORD>& words) {
        Store(rebarKey, L"CmdBands", REG_BINARY, words.data(), words.size() * sizeof(DWORD));
    }
};

TEST_F(CommandBarStore, HidesBothBarsAtFirst) {
    CommandBands bands;
    LoadCommandBarState(bands);
    EXPECT_EQ(bands.toolBarShown, 0u);
    EXPECT_EQ(bands.addressBarShown, 0u);
}

TEST_F(CommandBarStore, AlwaysStartsWithTheToolBarHidden) {
    StoreBands({1, 1});
    CommandBands bands;
    LoadCommandBarState(bands);
    EXPECT_EQ(bands.toolBarShown, 0u);
    EXPECT_EQ(bands.addressBarShown, 1u);
}

TEST_F(CommandBarStore, TakesAsMuchOfTheStateAsIsStored) {
    CommandBands bands{1, 5};
    StoreBands({1});
    LoadCommandBarState(bands);
    EXPECT_EQ(bands.toolBarShown, 0u);
    EXPECT_EQ(bands.addressBarShown, 5u);
    StoreBands({1, 6, 7, 8});
    LoadCommandBarState(bands);
    EXPECT_EQ(bands.addressBarShown, 6u);
}

TEST_F(CommandBarStore, WritesTheStateAsEightBytes) {
    SaveCommandBarState({0, 1});
    const StoredValue value = Read(rebarKey, L"CmdBands");
    EXPECT_EQ(value.type, static_cast<DWORD>(REG_BINARY));
    EXPECT_EQ(value.bytes, (std::vector<unsigned char>{0, 0, 0, 0, 1, 0, 0, 0}));
}

TEST_F(CommandBarStore, ListsTheFirstRecentEntryOnTop) {
    for (int number = 1; number <= 9; ++number)
        StoreText(recentKey, L"Recent" + std::to_wstring(number), L"\\" + std::to_wstring(number));
    LoadRecent(combo_);
    EXPECT_EQ(Entries(),
              (std::vector<std::wstring>{L"\\1", L"\\2", L"\\3", L"\\4", L"\\5", L"\\6", L"\\7", L"\\8"}));
}

TEST_F(CommandBarStore, PassesOverEmptyAndMissingEntries) {
    StoreText(recentKey, L"Recent2", L"\\2");
    StoreText(recentKey, L"Recent3", L"");
    StoreText(recentKey, L"Recent7", L"\\7");
    Add(L"\\already there");
    LoadRecent(combo_);
    EXPECT_EQ(Entries(), (std::vector<std::wstring>{L"\\2", L"\\7", L"\\already there"}));
}

TEST_F(CommandBarStore, MeasuresRecentEntries) {
    Store(recentKey, L"Recent1", REG_BINARY, std::wstring(261, L'x').data(), 520);
    Store(recentKey, L"Recent2", REG_SZ, std::wstring(300, L'y').data(), 600);
    Store(recentKey, L"Recent3", REG_SZ, L"\\ab", 5);
    LoadRecent(combo_);
    EXPECT_EQ(Entries(), (std::vector<std::wstring>{std::wstring(259, L'x'), L"\\a"}));
}

TEST_F(CommandBarStore, KeepsOldEntriesBelowNewOnes) {
    for (int number = 1; number <= 8; ++number)
        StoreText(recentKey, L"Recent" + std::to_wstring(number), L"\\old " + std::to_wstring(number));
    for (const wchar_t* text : {L"\\a", L"\\b", L"\\c"})
        Add(text);
    SaveRecent(combo_);
    SendMessageW(combo_, CB_RESETCONTENT, 0, 0);
    LoadRecent(combo_);
    EXPECT_EQ(Entries(), (std::vector<std::wstring>{L"\\a", L"\\b", L"\\c", L"\\old 4", L"\\old 5",
                                                    L"\\old 6", L"\\old 7", L"\\old 8"}));
}

TEST_F(CommandBarStore, WritesTheFirstEightEntries) {
    for (int number = 1; number <= 10; ++number)
        Add(L"\\" + std::to_wstring(number));
    SaveRecent(combo_);
    EXPECT_EQ(Read(recentKey, L"Recent8").Text(), L"\\8");
    EXPECT_EQ(Read(recentKey, L"Recent8").type, static_cast<DWORD>(REG_SZ));
    EXPECT_FALSE(Find(recentKey, L"Recent9"));
    EXPECT_FALSE(Find(recentKey, L"Recent0"));
}

TEST_F(CommandBarStore, CutsAnEntryThatNoPathCouldHave) {
    Add(std::wstring(1000, L'x'));
    SaveRecent(combo_);
    EXPECT_EQ(Read(recentKey, L"Recent1").Text(), std::wstring(259, L'x'));
}

TEST_F(CommandBarStore, DoesNothingWithoutAList) {
    StoreText(recentKey, L"Recent1", L"\\1");
    LoadRecent(nullptr);
    SaveRecent(nullptr);
    EXPECT_EQ(Read(recentKey, L"Recent1").Text(), L"\\1");
}

} // namespace
