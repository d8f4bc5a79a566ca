#include <string>
#include <vector>

#include "app/settings_store.h"
#include "platform/ce_api.h"
#include "tests/unit/app/stored_values.h"

namespace {

class ListSettingsStore : public StoredValues {
  protected:
    static void StoreOptions(std::size_t size) {
        std::vector<DWORD> words(32);
        for (std::size_t word = 0; word < words.size(); ++word)
            words[word] = static_cast<DWORD>(100 + word);
        Store(settingsKey, L"ListView", REG_BINARY, words.data(), size);
    }

    static Path PathOf(const std::wstring& text) {
        Path path;
        EXPECT_TRUE(path.Assign(text));
        return path;
    }
};

TEST_F(ListSettingsStore, HasItsDefaultsWithoutAnyValue) {
    FileList list;
    LoadListSettings(list);
    const std::uint32_t half = static_cast<std::uint32_t>(GetSystemMetrics(SM_CXSCREEN) / 2);
    const std::vector<std::uint32_t> expected = {0, 1, 0, 0, 1, 0, 0, half, half, half, half,
                                                 0, 0, 1, 1, 0, 1, 2, 0,    0,    0,    0};
    const auto* words = reinterpret_cast<const std::uint32_t*>(&list.options);
    EXPECT_EQ(std::vector<std::uint32_t>(words, words + 22), expected);
    EXPECT_EQ(list.iconOptions.genericIcons, 0u);
    EXPECT_EQ(list.iconOptions.ownRomIcons, 1u);
    EXPECT_EQ(list.iconOptions.ownArchiveIcons, 1u);
    EXPECT_EQ(list.CurrentFolder().View(), L"");
    EXPECT_STREQ(list.compressFolder.data(), L"\\Temp");
    EXPECT_EQ(list.dateMode, 0u);
    EXPECT_EQ(list.hideFolders, 0u);
    EXPECT_EQ(list.noExtensionInShortcuts, 1u);
}

TEST_F(ListSettingsStore, LaysTheOptionsOutAsStored) {
    StoreOptions(88);
    FileList list;
    LoadListSettings(list);
    EXPECT_EQ(list.options.sortKey, 100u);
    EXPECT_EQ(list.options.ascending, 101u);
    EXPECT_EQ(list.options.viewStyle, 102u);
    EXPECT_EQ(list.options.extendedStyle, 103u);
    EXPECT_EQ(list.options.hideHiddenFiles, 104u);
    EXPECT_EQ(list.options.hideSystemFiles, 105u);
    EXPECT_EQ(list.options.hideRomFiles, 106u);
    EXPECT_EQ(list.options.columnWidths, (std::array<std::uint32_t, 4>{107, 108, 109, 110}));
    EXPECT_EQ(list.options.rememberLastFolder, 111u);
    EXPECT_EQ(list.options.noShortcutMention, 112u);
    EXPECT_EQ(list.options.noExtension, 113u);
    EXPECT_EQ(list.options.singleTapOpens, 114u);
    EXPECT_EQ(list.options.noColumnNames, 115u);
    EXPECT_EQ(list.options.showUpLevel, 116u);
    EXPECT_EQ(list.options.archiveType, 117u);
    EXPECT_EQ(list.options.extractInPlace, 118u);
    EXPECT_EQ(list.options.automaticFolderCreation, 119u);
    EXPECT_EQ(list.options.alwaysOpenExtractFolder, 120u);
    EXPECT_EQ(list.options.openArchivesHere, 121u);
}

TEST_F(ListSettingsStore, IgnoresOptionsOfAnyOtherSizeWhole) {
    for (std::size_t size : {0u, 4u, 84u, 87u, 89u, 92u, 128u}) {
        StoreOptions(size);
        FileList list;
        LoadListSettings(list);
        EXPECT_EQ(list.options.sortKey, 0u) << size;
        EXPECT_EQ(list.options.ascending, 1u) << size;
        EXPECT_EQ(list.options.archiveType, 2u) << size;
    }
}

TEST_F(ListSettingsStore, TakesAsManyIconOptionsAsAreStored) {
    const DWORD words[] = {7, 8, 9, 10};
    Store(settingsKey, L"FileImageList", REG_BINARY, words, 4);
    FileList list;
    LoadListSettings(list);
    EXPECT_EQ(list.iconOptions.genericIcons, 7u);
    EXPECT_EQ(list.iconOptions.ownRomIcons, 1u);

    Store(settingsKey, L"FileImageList", REG_BINARY, words, 16);
    LoadListSettings(list);
    EXPECT_EQ(list.iconOptions.ownRomIcons, 8u);
    EXPECT_EQ(list.iconOptions.ownArchiveIcons, 9u);
    EXPECT_EQ(list.dateMode, 0u) << "nothing is written past the record";
}

TEST_F(ListSettingsStore, ReadsBackWhatItWrote) {
    FileList written;
    LoadListSettings(written);
    written.options.sortKey = 3;
    written.options.columnWidths = {10, 20, 30, 40};
    written.iconOptions.genericIcons = 1;
    written.SetCurrentFolder(PathOf(L"\\My Documents"));
    CopyTextTo(written.compressFolder, L"\\Storage Card\\Extracted");
    written.dateMode = 1;
    written.hideFolders = 1;
    written.noExtensionInShortcuts = 0;
    SaveListSettings(written);

    FileList read;
    LoadListSettings(read);
    EXPECT_EQ(read.options.sortKey, 3u);
    EXPECT_EQ(read.options.columnWidths, (std::array<std::uint32_t, 4>{10, 20, 30, 40}));
    EXPECT_EQ(read.iconOptions.genericIcons, 1u);
    EXPECT_EQ(read.CurrentFolder().View(), L"\\My Documents");
    EXPECT_STREQ(read.compressFolder.data(), L"\\Storage Card\\Extracted");
    EXPECT_EQ(read.dateMode, 1u);
    EXPECT_EQ(read.hideFolders, 1u);
    EXPECT_EQ(read.noExtensionInShortcuts, 0u);
}

TEST_F(ListSettingsStore, WritesItsNumbersAsBytes) {
    FileList list;
    LoadListSettings(list);
    SaveListSettings(list);
    for (const wchar_t* name : {L"OpenPthInfoCount", L"TimeStump", L"HideFolder", L"NoExtShortcut"}) {
        EXPECT_EQ(Read(settingsKey, name).type, static_cast<DWORD>(REG_BINARY));
        EXPECT_EQ(Read(settingsKey, name).bytes.size(), 4u);
    }
    EXPECT_EQ(Read(settingsKey, L"ListView").type, static_cast<DWORD>(REG_BINARY));
    EXPECT_EQ(Read(settingsKey, L"ListView").bytes.size(), 88u);
    EXPECT_EQ(Read(settingsKey, L"FileImageList").type, static_cast<DWORD>(REG_BINARY));
    EXPECT_EQ(Read(settingsKey, L"FileImageList").bytes.size(), 12u);
    EXPECT_EQ(Read(settingsKey, L"LastFolder").type, static_cast<DWORD>(REG_SZ));
    EXPECT_EQ(Read(settingsKey, L"LastFolder").Text(), L"");
    EXPECT_EQ(Read(settingsKey, L"CompressFolder").Text(), L"\\Temp");
}

TEST_F(ListSettingsStore, KeepsUserPathsInTheRegistryAlone) {
    FileList list;
    LoadListSettings(list);
    for (const wchar_t* path : {L"\\Aa", L"\\Bb\\Cc", L""})
        list.userPaths.push_back(CopyText(path));
    SaveListSettings(list);
    EXPECT_EQ(Read(settingsKey, L"OpenPthInfoCount").Number(), 3u);
    EXPECT_EQ(Read(settingsKey, L"OpenPthInfo0").Text(), L"\\Aa");
    EXPECT_EQ(Read(settingsKey, L"OpenPthInfo1").Text(), L"\\Bb\\Cc");
    EXPECT_EQ(Read(settingsKey, L"OpenPthInfo2").Text(), L"");

    FileList next;
    LoadListSettings(next);
    EXPECT_TRUE(next.userPaths.empty());
    SaveListSettings(next);
    EXPECT_EQ(Read(settingsKey, L"OpenPthInfoCount").Number(), 0u);
    EXPECT_EQ(Read(settingsKey, L"OpenPthInfo1").Text(), L"\\Bb\\Cc") << "old values stay";
}

TEST_F(ListSettingsStore, BearsAnyCountOfUserPaths) {
    StoreNumber(settingsKey, L"OpenPthInfoCount", 0xFFFFFFFF, REG_BINARY);
    StoreText(settingsKey, L"OpenPthInfo0", L"\\Aa");
    FileList list;
    LoadListSettings(list);
    EXPECT_TRUE(list.userPaths.empty());
}

TEST_F(ListSettingsStore, CutsFoldersToAPathsLength) {
    Store(settingsKey, L"LastFolder", REG_SZ, (L"\\" + std::wstring(260, L'x')).data(), 520);
    Store(settingsKey, L"CompressFolder", REG_SZ, std::wstring(261, L'y').data(), 520);
    FileList list;
    LoadListSettings(list);
    EXPECT_EQ(list.CurrentFolder().View(), L"\\" + std::wstring(258, L'x'));
    EXPECT_EQ(list.compressFolder.data(), std::wstring(259, L'y'));
}

TEST_F(ListSettingsStore, KeepsTheDefaultForAFolderThatIsTooLong) {
    StoreText(settingsKey, L"LastFolder", std::wstring(260, L'x'));
    StoreText(settingsKey, L"CompressFolder", std::wstring(260, L'y'));
    FileList list;
    LoadListSettings(list);
    EXPECT_EQ(list.CurrentFolder().View(), L"");
    EXPECT_STREQ(list.compressFolder.data(), L"\\Temp");
}

TEST_F(ListSettingsStore, TakesAnEmptyFolderAsEmpty) {
    StoreText(settingsKey, L"CompressFolder", L"");
    FileList list;
    LoadListSettings(list);
    EXPECT_STREQ(list.compressFolder.data(), L"");
}

} // namespace
