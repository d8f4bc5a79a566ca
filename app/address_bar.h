#pragma once
// The address bar: a combo box in the command bar, with the last typed paths as its list.

#include <string_view>

#include "platform/ce_api.h"

/// Control identifier of the combo box, outside the commands' ranges.
constexpr WORD addressComboId = 1200;

/// Makes the command bar with the address bar in it, hidden.
void CreateAddressBar();

/// Shows the folder's path; the device's display name for the root.
void ShowAddress(std::wstring_view folder);

bool IsAddressBarShown();

/// Gives the address bar's edit field the focus. False, and nothing happens, while it is hidden.
bool FocusAddressBar();

/// True while the focus is in the address bar and what stands there was typed, not gone to yet.
bool IsAddressBeingTyped();

/// Goes to the typed text and puts it on top of the list of recent paths.
void GoToTypedAddress();

/// A notification of the combo box, the high word of its WM_COMMAND.
void OnAddressNotification(int code);
