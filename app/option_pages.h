#pragma once
// The pages behind the first one. Each runs over `owner` and has taken its controls over, or not, once it
// returns.

#include "platform/ce_api.h"

/// True when the list needs its icons made anew.
bool ShowIconsPage(HWND owner);
void ShowFontPage(HWND owner);
void ShowControlsPage(HWND owner);
void ShowCompressionPage(HWND owner);
void ShowSystemPathPage(HWND owner);
void ShowAboutPage(HWND owner);
