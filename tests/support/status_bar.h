#pragma once
// The status bar's parts.

#include <string>
#include <vector>

#include <windows.h>

class StatusBar {
  public:
    explicit StatusBar(HWND window) : window_(window) {}
    HWND Window() const { return window_; }
    bool IsShown() const { return IsWindowVisible(window_); }

    /// The text of each part.
    std::vector<std::wstring> Texts() const;
    /// The right edge of each part in pixels; -1 is the bar's end.
    std::vector<int> Edges() const;

  private:
    HWND window_;
};
