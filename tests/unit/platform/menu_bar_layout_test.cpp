#include "platform/desktop/menu_bar_layout.h"

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "resources/resource.h"

namespace {

using Words = std::vector<WORD>;

constexpr WORD noImage = 0xFFFE;
constexpr WORD noPopup = 0xFFFF;

/// A library that holds these menu-bar resources and nothing that they refer to.
class Resources {
  public:
    explicit Resources(const std::map<UINT, Words>& bars) {
        wchar_t source[MAX_PATH] = L"";
        GetSystemDirectoryW(source, MAX_PATH);
        CopyFileW((std::wstring(source) + L"\\version.dll").c_str(), file_, FALSE);
        HANDLE update = BeginUpdateResourceW(file_, TRUE);
        for (const auto& [id, words] : bars)
            EXPECT_TRUE(UpdateResourceW(update, RT_RCDATA, MAKEINTRESOURCEW(id), 0,
                                        const_cast<WORD*>(words.data()),
                                        static_cast<DWORD>(words.size() * sizeof(WORD))));
        EXPECT_TRUE(EndUpdateResourceW(update, FALSE)) << GetLastError();
        library_.Reset(LoadLibraryExW(file_, nullptr, LOAD_LIBRARY_AS_DATAFILE));
        EXPECT_TRUE(library_);
    }
    ~Resources() {
        library_.Reset();
        DeleteFileW(file_);
    }
    Resources(const Resources&) = delete;
    Resources& operator=(const Resources&) = delete;

    std::optional<MenuBarLayout> Read(UINT id) const {
        SHMENUBARINFO info{};
        info.cbSize = sizeof(info);
        info.hInstRes = library_.Get();
        info.nToolBarId = id;
        return ReadMenuBarLayout(info);
    }

  private:
    static constexpr const wchar_t* file_ = L"E:\\Temp\\menu bars.dll";
    LibraryHandle library_;
};

std::optional<MenuBarLayout> OwnBar(UINT id, DWORD flags = 0) {
    SHMENUBARINFO info{};
    info.cbSize = sizeof(info);
    info.hInstRes = GetModuleHandleW(nullptr);
    info.nToolBarId = id;
    info.dwFlags = flags;
    return ReadMenuBarLayout(info);
}

Words Key(WORD command, WORD state, WORD style, WORD text = 0, WORD popup = noPopup) {
    return {noImage, command, state, style, text, 0, popup};
}

/// A resource of this many keys in its header and these behind it.
Words Bar(WORD count, const std::vector<Words>& keys, WORD menu = 0) {
    Words words = {menu, count};
    for (const Words& key : keys)
        words.insert(words.end(), key.begin(), key.end());
    return words;
}

TEST(MenuBarLayout, IsReadFromTheProgramsResource) {
    const std::optional<MenuBarLayout> layout = OwnBar(IDR_MENUBAR_MAIN);
    ASSERT_TRUE(layout);
    ASSERT_EQ(layout->keyCount, 2);
    EXPECT_TRUE(layout->menu);
    for (const MenuBarKey& key : layout->keys) {
        EXPECT_NE(key.command, 0u);
        EXPECT_EQ(key.state, TBSTATE_ENABLED);
        EXPECT_NE(key.text[0], L'\0');
        EXPECT_EQ(key.opensPopup, key.popup != nullptr);
    }
    EXPECT_EQ(layout->keys[1].command, static_cast<UINT>(IDM_SOFTKEY_MENU));
    EXPECT_TRUE(layout->keys[1].popup);
}

TEST(MenuBarLayout, TakesWhatAKeysWordsSay) {
    const Resources resources({{1, Bar(2, {Key(768, 4, 0x10), Key(1001, 0, 0x18, 0, 3)})}});
    const std::optional<MenuBarLayout> layout = resources.Read(1);
    ASSERT_TRUE(layout);
    EXPECT_EQ(layout->keyCount, 2);
    EXPECT_FALSE(layout->menu);
    EXPECT_EQ(layout->keys[0].command, 768u);
    EXPECT_EQ(layout->keys[0].state, 4);
    EXPECT_FALSE(layout->keys[0].opensPopup);
    EXPECT_STREQ(layout->keys[0].text.data(), L"") << "a text that is missing";
    EXPECT_EQ(layout->keys[1].command, 1001u);
    EXPECT_EQ(layout->keys[1].state, 0);
    EXPECT_TRUE(layout->keys[1].opensPopup);
    EXPECT_FALSE(layout->keys[1].popup) << "there is no menu to take it from";
}

TEST(MenuBarLayout, MayHaveFewerKeysOrMoreWords) {
    Words longer = Bar(1, {Key(768, 4, 0x10), Key(1001, 4, 0x10)});
    longer.push_back(7);
    const Resources resources({{1, Bar(0, {})}, {2, longer}});
    ASSERT_TRUE(resources.Read(1));
    EXPECT_EQ(resources.Read(1)->keyCount, 0);
    ASSERT_TRUE(resources.Read(2));
    EXPECT_EQ(resources.Read(2)->keyCount, 1);
    EXPECT_EQ(resources.Read(2)->keys[1].command, 0u);
}

TEST(MenuBarLayout, IsNothingWhenMalformed) {
    std::map<UINT, Words> bars;
    UINT id = 1;
    bars[id++] = {100};
    bars[id++] = Bar(1, {});
    bars[id++] = Bar(2, {Key(768, 4, 0x10)});
    bars[id++] = Bar(3, {Key(1, 4, 0), Key(2, 4, 0), Key(3, 4, 0)});
    bars[id++] = Bar(0xFFFF, {Key(1, 4, 0), Key(2, 4, 0)});
    const Words whole = Bar(2, {Key(768, 4, 0x10), Key(1001, 4, 0x10)});
    for (std::size_t size = 1; size < whole.size(); ++size)
        bars[id++] = Words(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size));
    const Resources resources(bars);
    for (const auto& [number, words] : bars)
        EXPECT_FALSE(resources.Read(number)) << "resource " << number;
    EXPECT_FALSE(resources.Read(id)) << "missing";
    EXPECT_FALSE(OwnBar(0xFFF0));
}

TEST(MenuBarLayout, IsReadFromAPlainMenu) {
    const std::optional<MenuBarLayout> layout = OwnBar(IDR_MENU_LIST, SHCMBF_HMENU);
    ASSERT_TRUE(layout);
    EXPECT_EQ(layout->keyCount, 2) << "no more than there are soft keys";
    EXPECT_TRUE(layout->keys[0].opensPopup);
    EXPECT_EQ(layout->keys[0].popup, GetSubMenu(layout->menu.Get(), 0));
    EXPECT_FALSE(OwnBar(0xFFF0, SHCMBF_HMENU));
}

TEST(MenuBarLayout, IsEmptyWhenAskedTo) {
    const std::optional<MenuBarLayout> layout = OwnBar(0xFFF0, SHCMBF_EMPTYBAR);
    ASSERT_TRUE(layout);
    EXPECT_EQ(layout->keyCount, 0);
}

} // namespace
