#include "filelist/drop_rules.h"

#include <gtest/gtest.h>

#include "resources/resource.h"

namespace {

constexpr DropKeys none;
constexpr DropKeys ctrl{.ctrl = true};
constexpr DropKeys alt{.alt = true};
constexpr DropKeys ctrlAlt{.ctrl = true, .alt = true};

} // namespace

TEST(DropRules, TheMenuIsAskedForByShiftOrTheOption) {
    EXPECT_FALSE(DropAsks(none));
    EXPECT_FALSE(DropAsks(ctrlAlt));
    EXPECT_TRUE(DropAsks({.shift = true}));
    EXPECT_TRUE(DropAsks({.alwaysMenu = true}));
}

TEST(DropRules, WithoutMenuTheKeysDecide) {
    EXPECT_EQ(DropActionOf(0, none), DropAction::Move);
    EXPECT_EQ(DropActionOf(0, ctrl), DropAction::Copy);
    EXPECT_EQ(DropActionOf(0, alt), DropAction::Shortcut);
    EXPECT_EQ(DropActionOf(0, ctrlAlt), DropAction::Copy);
}

TEST(DropRules, AHeldKeyOverridesTheMenu) {
    EXPECT_EQ(DropActionOfMenu(IDM_DROP_MOVE, none), DropAction::Move);
    EXPECT_EQ(DropActionOfMenu(IDM_DROP_SHORTCUT, none), DropAction::Shortcut);
    EXPECT_EQ(DropActionOfMenu(IDM_DROP_COPY, alt), DropAction::Copy);
    EXPECT_EQ(DropActionOfMenu(IDM_DROP_MOVE, ctrl), DropAction::Copy);
    EXPECT_EQ(DropActionOfMenu(IDM_DROP_SHORTCUT, ctrl), DropAction::Copy);
    EXPECT_EQ(DropActionOfMenu(IDM_DROP_MOVE, alt), DropAction::Shortcut);
}

TEST(DropRules, ADismissedMenuIsNoDrop) {
    EXPECT_EQ(DropActionOfMenu(0, ctrl), DropAction::None);
    EXPECT_EQ(DropActionOfMenu(IDM_DROP_CANCEL, ctrl), DropAction::None);
}
