#pragma once
// Looking at another process's windows.

#include <cstddef>
#include <span>
#include <string>
#include <vector>

#include <windows.h>

/// A message's answer, from a window that answers within ten seconds; otherwise the test ends by exception.
LRESULT Ask(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0);

/// Whether the window's thread takes messages.
bool Answers(HWND window);

/// The text of a window or control, by WM_GETTEXT.
std::wstring TextOf(HWND window);
std::wstring ClassOf(HWND window);
DWORD StyleOf(HWND window);

/// The window's place on the screen.
RECT PlaceOf(HWND window);
POINT MiddleOf(const RECT& rectangle);
bool LiesWithin(const RECT& inner, const RECT& outer);

/// The first child at any depth with this class, visible or not; null when there is none.
HWND ChildOfClass(HWND parent, const wchar_t* className);
std::vector<HWND> ChildrenOf(HWND parent);

/// The top-level windows of a process, topmost first.
std::vector<HWND> TopWindowsOf(DWORD process);

/// A block of memory in the process of a window, for messages whose structures live there.
class RemoteMemory {
  public:
    RemoteMemory(HWND window, std::size_t size);
    RemoteMemory(const RemoteMemory&) = delete;
    RemoteMemory& operator=(const RemoteMemory&) = delete;
    ~RemoteMemory();

    std::byte* Address() const { return address_; }
    void Write(const void* data, std::size_t size, std::size_t offset = 0);
    void Read(void* data, std::size_t size, std::size_t offset = 0) const;
    /// The terminated text at `offset`, at most up to the block's end.
    std::wstring ReadText(std::size_t offset) const;

    HANDLE Process() const { return process_; }

  private:
    HANDLE process_ = nullptr;
    std::byte* address_ = nullptr;
    std::size_t size_;
};
