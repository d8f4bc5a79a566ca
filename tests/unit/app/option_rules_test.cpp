#include "app/option_rules.h"

#include <memory>

#include <gtest/gtest.h>

namespace {

TEST(FontSizes, EachSizeOfTheListIsFound) {
    for (std::size_t index = 0; index < std::size(fontSizes); ++index)
        EXPECT_EQ(FontSizeIndex(fontSizes[index]), index);
}

TEST(FontSizes, AnyOtherSizeIsTheFirst) {
    for (const std::int32_t size : {-1, 0, 2, 13, 27, 0x7FFFFFFF})
        EXPECT_EQ(FontSizeIndex(size), 0u);
}

class SystemFolders : public testing::Test {
  protected:
    SystemFolders() {
        CopyTextTo(settings->startMenuPath, L"\\Windows\\Start Menu");
        CopyTextTo(settings->favoritesPath, L"\\Windows\\Favorites");
        CopyTextTo(settings->networkPath, L"\\Network");
        CopyTextTo(settings->desktopPath, L"\\Windows\\Desktop");
    }
    const std::unique_ptr<Settings> settings = std::make_unique<Settings>();
    TypedFolders typed;
};

TEST_F(SystemFolders, WhatIsLeftEmptyStays) {
    EXPECT_FALSE(TakeSystemFolders(*settings, typed));
    EXPECT_STREQ(settings->startMenuPath.data(), L"\\Windows\\Start Menu");
    EXPECT_STREQ(settings->favoritesPath.data(), L"\\Windows\\Favorites");
    EXPECT_STREQ(settings->networkPath.data(), L"\\Network");
}

TEST_F(SystemFolders, TheStartMenuTakesItsLeafAlongAndTheNetworkDoesNot) {
    CopyTextTo(typed.startMenu, L"\\Programs\\All");
    CopyTextTo(typed.network, L"\\Far\\Away");
    EXPECT_FALSE(TakeSystemFolders(*settings, typed));
    EXPECT_STREQ(settings->startMenuPath.data(), L"\\Programs\\All");
    EXPECT_STREQ(settings->startMenuLeaf, L"All");
    EXPECT_STREQ(settings->networkPath.data(), L"\\Far\\Away");
    EXPECT_STREQ(settings->networkLeaf, L"Far\\Away");
    EXPECT_STREQ(settings->desktopPath.data(), L"\\Windows\\Desktop");
}

TEST_F(SystemFolders, FavoritesAreTakenOnlyWhenTheyAreOthers) {
    CopyTextTo(typed.favorites, L"\\Windows\\Favorites");
    EXPECT_FALSE(TakeSystemFolders(*settings, typed));
    CopyTextTo(typed.favorites, L"\\Windows\\favorites");
    EXPECT_TRUE(TakeSystemFolders(*settings, typed));
    EXPECT_STREQ(settings->favoritesPath.data(), L"\\Windows\\favorites");
}

} // namespace
