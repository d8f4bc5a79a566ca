#include "tests/support/other_program.h"

#include "tests/support/waiting.h"

OtherProgram::OtherProgram(const std::wstring& className, const std::wstring& title)
    : className_(className), title_(title) {
    const HANDLE ready = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    thread_ = std::thread([this, ready] { Run(ready); });
    WaitForSingleObject(ready, defaultPatience);
    CloseHandle(ready);
    WaitFor("for another program's window to come to the front", [&] { return IsInFront(); });
}

OtherProgram::~OtherProgram() {
    PostMessageW(window_, WM_CLOSE, 0, 0);
    thread_.join();
    UnregisterClassW(className_.c_str(), GetModuleHandleW(nullptr));
}

void OtherProgram::Run(HANDLE ready) {
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = Procedure;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.lpszClassName = className_.c_str();
    RegisterClassW(&windowClass);
    window_ = CreateWindowExW(0, className_.c_str(), title_.c_str(), WS_POPUP | WS_VISIBLE, 0, 30, 100, 100,
                              nullptr, nullptr, windowClass.hInstance, this);
    SetForegroundWindow(window_);
    SetEvent(ready);
    for (MSG message; GetMessageW(&message, nullptr, 0, 0) > 0;)
        DispatchMessageW(&message);
}

LRESULT CALLBACK OtherProgram::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE) {
        const auto* creation = reinterpret_cast<const CREATESTRUCTW*>(lParam);
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(creation->lpCreateParams));
    }
    auto* program = reinterpret_cast<OtherProgram*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (message == WM_COPYDATA) {
        const auto& data = *reinterpret_cast<const COPYDATASTRUCT*>(lParam);
        const std::lock_guard guard(program->lock_);
        program->received_.push_back(
            {data.dwData, wParam, data.cbData, static_cast<const wchar_t*>(data.lpData)});
        return 0;
    }
    if (message == WM_DESTROY)
        PostQuitMessage(0);
    return DefWindowProcW(window, message, wParam, lParam);
}

std::vector<ReceivedCopyData> OtherProgram::Received() const {
    const std::lock_guard guard(lock_);
    return received_;
}
