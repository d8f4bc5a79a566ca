#include "platform/ce_api.h"
#include "platform/desktop/device_shell.h"
#include "platform/desktop/subclass.h"

namespace {

HINSTANCE shellInstance;

constexpr wchar_t FILLS_WORK_AREA[] = L"TarvikFillsWorkArea";
constexpr UINT UM_RENEW_MESSAGE_TIME = WM_APP;

/// A window that fills the work area does so as well when it is maximised.
void MaximizeToWorkArea(MINMAXINFO* limits) {
    RECT area = WorkArea();
    limits->ptMaxPosition = {area.left, area.top};
    limits->ptMaxSize = {area.right - area.left, area.bottom - area.top};
}

LRESULT CALLBACK FollowedProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_INITMENUPOPUP:
        LimitMenuHeight(reinterpret_cast<HMENU>(wParam));
        break;
    case WM_MENUCHAR:
        if (LRESULT answer;
            PickByNumber(reinterpret_cast<HMENU>(lParam), static_cast<wchar_t>(LOWORD(wParam)), &answer))
            return answer;
        break;
    case WM_NCDESTROY:
        RemovePropW(window, FILLS_WORK_AREA);
        break;
    }

    LRESULT result = CallNextProc(FollowedProc, window, message, wParam, lParam);

    switch (message) {
    case WM_GETMINMAXINFO:
        if (lParam && GetPropW(window, FILLS_WORK_AREA))
            MaximizeToWorkArea(reinterpret_cast<MINMAXINFO*>(lParam));
        break;
    case WM_SETTEXT:
    case WM_SETICON:
    case WM_NCDESTROY:
        RefreshTitle();
        break;
    case WM_ACTIVATE:
        UpdateMenuBar(window, LOWORD(wParam) != WA_INACTIVE);
        break;
    case WM_WINDOWPOSCHANGED: // shown or hidden, perhaps
    case WM_ENABLE:
        UpdateMenuBar(window, false);
        break;
    }
    return result;
}

/// The phone keeps every window from drawing over its neighbours, which the desktop does only for a style. So
/// the pixels that a pane would take along when it moves can be a neighbour's: it is painted anew instead.
LRESULT CALLBACK ChildProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_WINDOWPOSCHANGING && lParam)
        reinterpret_cast<WINDOWPOS*>(lParam)->flags |= SWP_NOCOPYBITS;
    if (message == WM_SYSKEYDOWN && NotifyOfKeyWithAlt(window, wParam))
        return DefWindowProcW(window, message, wParam, lParam);
    return CallNextProc(ChildProc, window, message, wParam, lParam);
}

void OnWindowMade(HWND window, const CREATESTRUCTW& made) {
    KeepMenuInWorkArea(window);
    FitMessageBox(window, made);
    if ((made.style & WS_CHILD) && GetPropW(made.hwndParent, FILLS_WORK_AREA))
        Subclass(window, ChildProc);
}

/// Wine asks the X server for the keyboard with the time of the message that this thread fetched last. The
/// server refuses who comes with an older time than the one who has it, and a program that another one brings
/// to the front may have fetched nothing since that one came: so it fetches a message of its own now. What
/// others have sent to its windows is answered on the way.
void RenewMessageTime() {
    const HWND threadItself = reinterpret_cast<HWND>(-1);
    MSG message;
    PostThreadMessageW(GetCurrentThreadId(), UM_RENEW_MESSAGE_TIME, 0, 0);
    PeekMessageW(&message, threadItself, UM_RENEW_MESSAGE_TIME, UM_RENEW_MESSAGE_TIME, PM_REMOVE);
}

/// The window that takes the keys in place of one that is greyed under its dialog. Null for one that takes
/// them itself.
HWND WindowInFrontOf(HWND window) {
    if (!window || IsWindowEnabled(window))
        return nullptr; // null: another program comes to the front
    HWND parent = MenuBarParent(FrontMenuBar());
    HWND front = parent ? GetAncestor(parent, GA_ROOT) : nullptr;
    return front != window ? front : nullptr;
}

LRESULT CALLBACK OnWindowEvent(int code, WPARAM wParam, LPARAM lParam) {
    HWND window = reinterpret_cast<HWND>(wParam);
    switch (code) {
    case HCBT_CREATEWND:
        OnWindowMade(window, *reinterpret_cast<const CBT_CREATEWNDW*>(lParam)->lpcs);
        break;
    case HCBT_ACTIVATE:
        if (InSendMessageEx(nullptr) != ISMEX_NOSEND)
            RenewMessageTime();
        if (IsTitleStrip(window) || IsMenuBar(window))
            break;
        if (HWND front = WindowInFrontOf(window)) {
            SetActiveWindow(front);
            return 1; // the greyed window stays where it is
        }
        FollowWindow(window);
        ShowTitleOf(window);
        break;
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

} // namespace

void StartDeviceShell(HINSTANCE instance) {
    SetShellInstance(instance);
    SetWindowsHookExW(WH_CBT, OnWindowEvent, nullptr, GetCurrentThreadId());
    ListenForKeys(false);
}

void SetShellInstance(HINSTANCE instance) {
    shellInstance = instance;
}

bool IsOfClass(HWND window, const wchar_t* className) {
    wchar_t name[32] = {};
    GetClassNameW(window, name, ARRAYSIZE(name));
    return lstrcmpiW(name, className) == 0;
}

HINSTANCE ShellInstance() {
    return shellInstance;
}

void RegisterShellClass(const wchar_t* name, WNDPROC procedure, HBRUSH background) {
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = procedure;
    windowClass.hInstance = shellInstance;
    windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    windowClass.hbrBackground = background;
    windowClass.lpszClassName = name;
    RegisterClassW(&windowClass);
}

BarHeights ShellBarHeights() {
    return BarHeightsOn(GetSystemMetrics(SM_CYSCREEN), GetSystemMetrics(SM_CYMENU));
}

RECT WorkArea() {
    BarHeights bars = ShellBarHeights();
    return {0, bars.titleStrip, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN) - bars.softKeys};
}

void FollowWindow(HWND window) {
    Subclass(window, FollowedProc);
}

void PassActivationOn() {
    if (HWND parent = MenuBarParent(FrontMenuBar()))
        SetActiveWindow(GetAncestor(parent, GA_ROOT));
}

HWND ce::CreateWindowExW(DWORD exStyle, const wchar_t* className, const wchar_t* title, DWORD style, int x,
                         int y, int width, int height, HWND parent, HMENU menu, HINSTANCE instance,
                         void* parameter) {
    bool anywhere =
        x == CW_USEDEFAULT && y == CW_USEDEFAULT && width == CW_USEDEFAULT && height == CW_USEDEFAULT;
    if (parent || !anywhere)
        return ::CreateWindowExW(exStyle, className, title, style, x, y, width, height, parent, menu,
                                 instance, parameter);

    RECT area = WorkArea();
    // Made invisible, so that it is followed before it is first activated and shown.
    HWND window =
        ::CreateWindowExW(exStyle, className, title, (style | WS_POPUP) & ~WS_VISIBLE, area.left, area.top,
                          area.right - area.left, area.bottom - area.top, nullptr, menu, instance, parameter);
    if (!window)
        return nullptr;
    SetPropW(window, FILLS_WORK_AREA, window);
    FollowWindow(window);
    if (style & WS_VISIBLE)
        ShowWindow(window, SW_SHOW);
    return window;
}

BOOL ce::SetForegroundWindow(HWND window) {
    constexpr UINT_PTR withOwned = 1; // which the desktop's windows always come with
    return ::SetForegroundWindow(reinterpret_cast<HWND>(reinterpret_cast<UINT_PTR>(window) & ~withOwned));
}
