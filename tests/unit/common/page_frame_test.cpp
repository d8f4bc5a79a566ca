#include "common/page_frame.h"

#include <gtest/gtest.h>

#include "platform/handles.h"

namespace {

/// A plain window that goes with the test.
class TestWindow {
  public:
    TestWindow(const wchar_t* className, int width, int height, HWND parent = nullptr, int id = 0)
        : window_(CreateWindowExW(0, className, L"", parent ? WS_CHILD : WS_POPUP, 0, 0, width, height,
                                  parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)),
                                  GetModuleHandleW(nullptr), nullptr)) {}
    ~TestWindow() { DestroyWindow(window_); }

    HWND Get() const { return window_; }

    POINT Position() const {
        RECT place{};
        GetWindowRect(window_, &place);
        return {place.left, place.top};
    }

  private:
    HWND window_;
};

class Centred : public testing::Test {
  protected:
    POINT CentredPosition(int width, int height) const {
        const TestWindow window(L"STATIC", width, height);
        CenterOnMainWindow(window.Get(), main_.Get());
        return window.Position();
    }

    TestWindow main_{L"STATIC", 240, 268};
};

TEST_F(Centred, LiesInTheMiddleOfTheMainWindow) {
    const POINT position = CentredPosition(100, 100);
    EXPECT_EQ(position.x, 70);
    EXPECT_EQ(position.y, 84);
}

TEST_F(Centred, IsMovedBelowTheTitleStrip) {
    EXPECT_EQ(CentredPosition(240, 216).y, 26);
    EXPECT_EQ(CentredPosition(240, 218).y, 23);
    EXPECT_EQ(CentredPosition(240, 268).y, 23);
    EXPECT_EQ(CentredPosition(240, 268).x, 0);
}

TEST(PageFrame, ColoursOnlyTitleAndCaptions) {
    const TestWindow page(L"STATIC", 240, 268);
    HDC context = GetDC(page.Get());
    for (int id : {1091, 1092, 1093}) {
        SetTextColor(context, RGB(1, 2, 3));
        SetBkMode(context, OPAQUE);
        const TestWindow caption(L"STATIC", 50, 20, page.Get(), id);
        EXPECT_EQ(ColorPageTitle(context, caption.Get()),
                  reinterpret_cast<LRESULT>(GetStockObject(WHITE_BRUSH)));
        EXPECT_EQ(GetTextColor(context), GetSysColor(COLOR_HIGHLIGHT));
        EXPECT_EQ(GetBkMode(context), TRANSPARENT);
    }
    for (int id : {0, 1090, 1094}) {
        SetTextColor(context, RGB(1, 2, 3));
        const TestWindow other(L"STATIC", 50, 20, page.Get(), id);
        EXPECT_EQ(ColorPageTitle(context, other.Get()), 0);
        EXPECT_EQ(GetTextColor(context), RGB(1, 2, 3));
    }
    ReleaseDC(page.Get(), context);
}

} // namespace
