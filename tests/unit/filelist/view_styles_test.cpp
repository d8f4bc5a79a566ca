#include "filelist/view_styles.h"

#include <vector>

#include <gtest/gtest.h>

#include "resources/resource.h"

namespace {

constexpr int ring[] = {IDM_VIEW_LARGE, IDM_VIEW_LIST, IDM_VIEW_SMALL, IDM_VIEW_DETAILED,
                        IDM_VIEW_DETAILED_LINE};

ListOptions Showing(int command) {
    ListOptions options;
    ApplyViewCommand(options, command);
    return options;
}

TEST(ViewStyles, BelongToTheirCommands) {
    EXPECT_EQ(Showing(IDM_VIEW_LARGE).viewStyle, 0u);
    EXPECT_EQ(Showing(IDM_VIEW_DETAILED).viewStyle, 1u);
    EXPECT_EQ(Showing(IDM_VIEW_DETAILED_LINE).viewStyle, 1u);
    EXPECT_EQ(Showing(IDM_VIEW_LIST).viewStyle, 2u) << "List is the small-icon style";
    EXPECT_EQ(Showing(IDM_VIEW_SMALL).viewStyle, 3u) << "Small is the list style";
}

TEST(ViewStyles, SelectWholeLinesOnlyWhenAskedTo) {
    for (int command : ring)
        EXPECT_EQ(Showing(command).extendedStyle, command == IDM_VIEW_DETAILED_LINE ? 0x20u : 0u) << command;
    ListOptions options = Showing(IDM_VIEW_DETAILED_LINE);
    ApplyViewCommand(options, IDM_VIEW_DETAILED);
    EXPECT_EQ(options.extendedStyle, 0u);
}

TEST(ViewStyles, ComeBackAtStartWithoutLineSelection) {
    ListOptions options = Showing(IDM_VIEW_DETAILED_LINE);
    ApplyViewCommand(options, 0);
    EXPECT_EQ(options.viewStyle, 1u);
    EXPECT_EQ(options.extendedStyle, 0u);
    EXPECT_EQ(CheckedViewCommand(options), IDM_VIEW_DETAILED);
}

TEST(ViewStyles, StayForOtherCommands) {
    for (std::uint32_t style : {0u, 1u, 2u, 3u, 9u}) {
        ListOptions options;
        options.viewStyle = style;
        ApplyViewCommand(options, IDM_FILE_DELETE);
        EXPECT_EQ(options.viewStyle, style);
    }
}

TEST(ViewStyles, FollowOneAnotherInARing) {
    ListOptions options;
    std::vector<int> passed;
    for (std::size_t step = 0; step < std::size(ring); ++step) {
        ApplyViewCommand(options, NextViewCommand(options));
        passed.push_back(CheckedViewCommand(options));
    }
    EXPECT_EQ(passed, (std::vector<int>{IDM_VIEW_LIST, IDM_VIEW_SMALL, IDM_VIEW_DETAILED,
                                        IDM_VIEW_DETAILED_LINE, IDM_VIEW_LARGE}));
}

TEST(ViewStyles, TakeAnUnknownNumberForTheStyleItShowsAs) {
    ListOptions options;
    options.viewStyle = 0xFFFFFFFC;
    EXPECT_EQ(ShownStyle(options), viewIcon);
    EXPECT_EQ(CheckedViewCommand(options), IDM_VIEW_LARGE);
    EXPECT_EQ(NextViewCommand(options), IDM_VIEW_LIST);
    options.viewStyle = 5;
    options.extendedStyle = LVS_EX_FULLROWSELECT;
    options.noColumnNames = 1;
    EXPECT_EQ(CheckedViewCommand(options), IDM_VIEW_DETAILED_LINE);
    EXPECT_EQ(ViewExtendedStyle(options, 0), 0x60u);
    EXPECT_EQ(ViewWindowStyle(options), 0x50814249u);
}

TEST(ViewStyles, CheckTheCommandOfTheStyle) {
    for (int command : ring)
        EXPECT_EQ(CheckedViewCommand(Showing(command)), command);
}

TEST(ViewWindow, HasItsBaseInEveryStyle) {
    EXPECT_EQ(viewBaseStyle, 0x50810248u);
    EXPECT_EQ(ViewWindowStyle(Showing(IDM_VIEW_LARGE)), 0x50810248u);
    EXPECT_EQ(ViewWindowStyle(Showing(IDM_VIEW_DETAILED)), 0x50810249u);
    EXPECT_EQ(ViewWindowStyle(Showing(IDM_VIEW_DETAILED_LINE)), 0x50810249u);
    EXPECT_EQ(ViewWindowStyle(Showing(IDM_VIEW_LIST)), 0x5081024Au);
    EXPECT_EQ(ViewWindowStyle(Showing(IDM_VIEW_SMALL)), 0x5081024Bu);
}

TEST(ViewWindow, GoesWithoutColumnNamesInDetailsAlone) {
    for (int command : ring) {
        ListOptions options = Showing(command);
        const DWORD withNames = ViewWindowStyle(options);
        options.noColumnNames = 1;
        EXPECT_EQ(ViewWindowStyle(options), options.viewStyle == 1 ? withNames | 0x4000 : withNames);
    }
}

TEST(ViewWindow, TakesNoMoreThanAStyleFromAStoredNumber) {
    ListOptions options;
    for (std::uint32_t style : {4u, 0x4000u, 0x10000000u, 0xFFFFFFFCu}) {
        options.viewStyle = style;
        EXPECT_EQ(ViewWindowStyle(options), 0x50810248u);
    }
}

TEST(ViewExtendedStyle, IsAddedForLineSelection) {
    EXPECT_EQ(ViewExtendedStyle(Showing(IDM_VIEW_DETAILED_LINE), 0), 0x60u);
    EXPECT_EQ(ViewExtendedStyle(Showing(IDM_VIEW_DETAILED_LINE), 0x11), 0x71u);
}

TEST(ViewExtendedStyle, IsTakenOffOtherwise) {
    for (int command : {IDM_VIEW_LARGE, IDM_VIEW_LIST, IDM_VIEW_SMALL, IDM_VIEW_DETAILED})
        EXPECT_EQ(ViewExtendedStyle(Showing(command), 0x71), 0u);
    ListOptions options = Showing(IDM_VIEW_LARGE);
    options.extendedStyle = 0x20;
    EXPECT_EQ(ViewExtendedStyle(options, 0x71), 0u) << "line selection is for details";
}

} // namespace
