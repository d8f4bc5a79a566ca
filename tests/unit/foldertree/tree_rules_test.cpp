#include "foldertree/tree_rules.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

constexpr SpecialNames special{L"Network", L"My Documents", L"Start Menu"};

std::vector<std::wstring> ComponentsOf(std::wstring_view path) {
    std::vector<std::wstring> all;
    for (PathComponents components(path); components.HasNext();)
        all.emplace_back(components.Next());
    return all;
}

void ExpectImages(NodeImages images, TreeImage normal, TreeImage selected) {
    EXPECT_EQ(images.normal, normal);
    EXPECT_EQ(images.selected, selected);
}

using Texts = std::vector<std::wstring>;

} // namespace

TEST(TreeImages, OrdinaryFolderOpensWhenSelected) {
    ExpectImages(ImagesOf(L"Fonts", FILE_ATTRIBUTE_DIRECTORY, special), treeImageFolder, treeImageFolderOpen);
}

TEST(TreeImages, SpecialFoldersGoByNameInAnyCase) {
    ExpectImages(ImagesOf(L"my documents", FILE_ATTRIBUTE_DIRECTORY, special), treeImageDocuments,
                 treeImageDocuments);
    ExpectImages(ImagesOf(L"START MENU", FILE_ATTRIBUTE_DIRECTORY, special), treeImageStartMenu,
                 treeImageStartMenu);
    ExpectImages(ImagesOf(L"network", FILE_ATTRIBUTE_DIRECTORY, special), treeImageNetwork, treeImageNetwork);
}

TEST(TreeImages, CardNeedsNoDirectoryBit) {
    ExpectImages(ImagesOf(L"Storage Card", FILE_ATTRIBUTE_STORAGE_CARD, special), treeImageCard,
                 treeImageCard);
}

TEST(TreeImages, CardComesBeforeDocumentsAndAfterTheOthers) {
    constexpr DWORD card = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_STORAGE_CARD;
    EXPECT_EQ(ImagesOf(L"My Documents", card, special).normal, treeImageCard);
    EXPECT_EQ(ImagesOf(L"Start Menu", card, special).normal, treeImageStartMenu);
    EXPECT_EQ(ImagesOf(L"Network", card, special).normal, treeImageNetwork);
}

TEST(TreeNames, RecycledIsHiddenInAnyCase) {
    EXPECT_TRUE(IsHiddenFromTree(L"Recycled"));
    EXPECT_TRUE(IsHiddenFromTree(L"RECYCLED"));
    EXPECT_FALSE(IsHiddenFromTree(L"Recycled2"));
}

TEST(UpwardPath, StartsEmptyAsTheRoot) {
    EXPECT_EQ(UpwardPath().View(), L"");
}

TEST(UpwardPath, PutsEachComponentInFront) {
    UpwardPath path;
    EXPECT_TRUE(path.Prepend(L"Fonts"));
    EXPECT_EQ(path.View(), L"\\Fonts");
    EXPECT_TRUE(path.Prepend(L"Windows"));
    EXPECT_EQ(path.View(), L"\\Windows\\Fonts");
}

TEST(UpwardPath, RefusesWhatDoesNotFitAndKeepsWhatItHas) {
    UpwardPath path;
    EXPECT_TRUE(path.Prepend(std::wstring(250, L'x')));
    EXPECT_FALSE(path.Prepend(L"12345678"));
    EXPECT_EQ(path.View().size(), 251u);
    EXPECT_TRUE(path.Prepend(L"1234567"));
    EXPECT_EQ(path.View().size(), 259u);
    EXPECT_FALSE(path.Prepend(L""));
}

TEST(PathComponents, RootHasNone) {
    EXPECT_EQ(ComponentsOf(L""), Texts());
}

TEST(PathComponents, TextWithoutBackslashHasNone) {
    EXPECT_EQ(ComponentsOf(L"Windows"), Texts());
}

TEST(PathComponents, StandBehindEachBackslash) {
    EXPECT_EQ(ComponentsOf(L"\\Windows"), Texts({L"Windows"}));
    EXPECT_EQ(ComponentsOf(L"\\Windows\\Start Menu\\Games"), Texts({L"Windows", L"Start Menu", L"Games"}));
}

TEST(PathComponents, BackslashAtTheEndLeavesAnEmptyLastOne) {
    EXPECT_EQ(ComponentsOf(L"\\Windows\\"), Texts({L"Windows", L""}));
    EXPECT_EQ(ComponentsOf(L"\\"), Texts({L""}));
}

TEST(PathComponents, WhatPrecedesTheFirstBackslashIsLeftOut) {
    EXPECT_EQ(ComponentsOf(L"odd\\Windows"), Texts({L"Windows"}));
    EXPECT_EQ(ComponentsOf(L"\\\\server\\share"), Texts({L"", L"server", L"share"}));
}
