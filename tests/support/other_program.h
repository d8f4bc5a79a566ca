#pragma once
// A window of another program: in front of the program under test, or in its place.

#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include <windows.h>

/// A WM_COPYDATA as it came in.
struct ReceivedCopyData {
    ULONG_PTR code;
    WPARAM sender;
    DWORD size;
    std::wstring text; // up to its terminating zero
};

class OtherProgram {
  public:
    /// Opens a window of this class in front of all others; it answers until its end.
    explicit OtherProgram(const std::wstring& className = L"other_program", const std::wstring& title = L"");
    ~OtherProgram();
    OtherProgram(const OtherProgram&) = delete;
    OtherProgram& operator=(const OtherProgram&) = delete;

    HWND Window() const { return window_; }
    bool IsInFront() const { return GetForegroundWindow() == window_; }
    std::vector<ReceivedCopyData> Received() const;

  private:
    void Run(HANDLE ready);
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    std::wstring className_;
    std::wstring title_;
    HWND window_ = nullptr;
    mutable std::mutex lock_;
    std::vector<ReceivedCopyData> received_;
    std::thread thread_;
};
