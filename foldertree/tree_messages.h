#pragma once
// Timers and messages that the tree's own window sends itself.

#include "platform/ce_api.h"

constexpr UINT_PTR endEditTimer = 3;
constexpr UINT endEditDelay = 500; // milliseconds

/// Opens the editor of a refused name again, once the control is done with ending the edit.
constexpr UINT UM_EDITAGAIN = WM_APP + 1;
