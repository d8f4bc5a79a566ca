#include "tests/support/live_window.h"

#include <algorithm>
#include <stdexcept>

namespace {

constexpr UINT answerPatience = 10000; // milliseconds

} // namespace

LRESULT Ask(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    DWORD_PTR answer = 0;
    SetLastError(0);
    if (!SendMessageTimeoutW(window, message, wParam, lParam, SMTO_NORMAL, answerPatience, &answer))
        throw std::runtime_error(IsWindow(window)
                                     ? "a window does not answer message " + std::to_string(message)
                                     : "a window is gone before message " + std::to_string(message));
    return static_cast<LRESULT>(answer);
}

bool Answers(HWND window) {
    DWORD_PTR answer = 0;
    return SendMessageTimeoutW(window, WM_NULL, 0, 0, SMTO_NORMAL, answerPatience, &answer) != 0;
}

std::wstring TextOf(HWND window) {
    std::wstring text(Ask(window, WM_GETTEXTLENGTH) + 1, L'\0');
    text.resize(Ask(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data())));
    return text;
}

std::wstring ClassOf(HWND window) {
    wchar_t name[256];
    return {name, static_cast<std::size_t>(GetClassNameW(window, name, 256))};
}

DWORD StyleOf(HWND window) {
    return static_cast<DWORD>(GetWindowLongW(window, GWL_STYLE));
}

RECT PlaceOf(HWND window) {
    RECT place{};
    GetWindowRect(window, &place);
    return place;
}

POINT MiddleOf(const RECT& rectangle) {
    return {(rectangle.left + rectangle.right) / 2, (rectangle.top + rectangle.bottom) / 2};
}

bool LiesWithin(const RECT& inner, const RECT& outer) {
    return inner.left >= outer.left && inner.top >= outer.top && inner.right <= outer.right &&
           inner.bottom <= outer.bottom;
}

std::vector<HWND> ChildrenOf(HWND parent) {
    std::vector<HWND> children;
    EnumChildWindows(
        parent,
        [](HWND child, LPARAM list) WINAPI -> BOOL {
            reinterpret_cast<std::vector<HWND>*>(list)->push_back(child);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&children));
    return children;
}

HWND ChildOfClass(HWND parent, const wchar_t* className) {
    const std::vector<HWND> children = ChildrenOf(parent);
    const auto found = std::find_if(children.begin(), children.end(), [&](HWND child) {
        return _wcsicmp(ClassOf(child).c_str(), className) == 0;
    });
    return found == children.end() ? nullptr : *found;
}

std::vector<HWND> TopWindowsOf(DWORD process) {
    std::vector<HWND> windows;
    EnumWindows(
        [](HWND window, LPARAM list) WINAPI -> BOOL {
            reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&windows));
    std::erase_if(windows, [process](HWND window) {
        DWORD owner = 0;
        GetWindowThreadProcessId(window, &owner);
        return owner != process;
    });
    return windows;
}

RemoteMemory::RemoteMemory(HWND window, std::size_t size) : size_(size) {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    process_ = OpenProcess(PROCESS_ALL_ACCESS, FALSE, process);
    address_ = static_cast<std::byte*>(
        VirtualAllocEx(process_, nullptr, size, MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE));
    if (!address_) {
        CloseHandle(process_);
        throw std::runtime_error("no memory to be had in the program: it has ended");
    }
}

RemoteMemory::~RemoteMemory() {
    VirtualFreeEx(process_, address_, 0, MEM_RELEASE);
    CloseHandle(process_);
}

void RemoteMemory::Write(const void* data, std::size_t size, std::size_t offset) {
    WriteProcessMemory(process_, address_ + offset, data, size, nullptr);
}

void RemoteMemory::Read(void* data, std::size_t size, std::size_t offset) const {
    ReadProcessMemory(process_, address_ + offset, data, size, nullptr);
}

std::wstring RemoteMemory::ReadText(std::size_t offset) const {
    std::wstring text((size_ - offset) / sizeof(wchar_t), L'\0');
    Read(text.data(), text.size() * sizeof(wchar_t), offset);
    text.resize(std::min(text.find(L'\0'), text.size()));
    return text;
}
