#pragma once
// The system's clipboard.

#include <string>

/// The text on it; empty when there is none.
std::wstring ClipboardText();
