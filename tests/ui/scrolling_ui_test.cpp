// Screens: 240x320

// Scrolling through many entries: only what comes into view is asked for.

#include "tests/support/ui_test.h"

namespace {

// What a list asks of each entry, an emulated processor answers more slowly.
const int many = RunsPhoneProgram() ? 5000 : 20000;

class ScrollingUi : public UiTest {
  protected:
    /// How many entries the list's window has room for, begun ones counted.
    UINT PageOf(const ListView& list) const {
        const DWORD style = list.ViewStyle();
        if (style == LVS_REPORT || style == LVS_LIST)
            return static_cast<UINT>(Ask(list.Window(), LVM_GETCOUNTPERPAGE)) + 1;
        const auto spacing =
            static_cast<DWORD>(Ask(list.Window(), LVM_GETITEMSPACING, style == LVS_SMALLICON));
        RECT client{};
        GetClientRect(list.Window(), &client);
        return (client.right / LOWORD(spacing) + 1u) * (client.bottom / HIWORD(spacing) + 1u);
    }

    /// What the list asked for from the last call on until it is drawn.
    Asked AskedUntilDrawn(const ListView& list) const {
        Asked all{};
        const auto more = [&] {
            const Asked now = AskedByList(list.Window());
            all.texts += now.texts;
            all.icons += now.icons;
            return now.texts + now.icons > 0;
        };
        WaitFor("for the list to be drawn", more);
        while (!HoldsFor(200, [&] { return !more(); }))
            ;
        return all;
    }
};

TEST_F(ScrollingUi, AsksForWhatIsDrawnInEveryStyle) {
    constexpr UINT keys = 5;
    constexpr UINT columns = 4;
    constexpr UINT asksForEach = 3; // measured, drawn, and drawn again with the focus
    device.Files(L"\\Many", L"file", many);
    program.Start(L"\\Many");
    const ListView list = program.List();
    ASSERT_EQ(list.Count(), many + 1);
    AskedByList(list.Window());
    for (const UINT style :
         {IDM_VIEW_LARGE, IDM_VIEW_SMALL, IDM_VIEW_LIST, IDM_VIEW_DETAILED, IDM_VIEW_DETAILED_LINE}) {
        program.Command(style);
        AskedUntilDrawn(list);
        const UINT page = PageOf(list);
        const UINT shown = page * (list.ViewStyle() == LVS_REPORT ? columns : 1);
        Asked asked{};
        for (UINT key = 0; key < keys; ++key) {
            PostKey(list.Window(), VK_NEXT);
            const Asked now = AskedUntilDrawn(list);
            asked.texts += now.texts;
            asked.icons += now.icons;
        }
        EXPECT_LE(asked.texts, shown * keys * asksForEach) << "style " << style;
        EXPECT_LE(asked.icons, page * keys * asksForEach) << "style " << style;
    }
}

} // namespace
