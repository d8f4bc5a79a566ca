#pragma once
// What is done when there is no memory left: the person is asked.

#include "platform/ce_api.h"

constexpr UINT exitFault = 2;
constexpr UINT exitOutOfMemory = 3;

/// Sets aside what asking takes. Once, before anything is allocated.
void PrepareForTheEnd();

/// Says that there is not enough memory, and waits for the answer. Nothing of the program runs meanwhile: the
/// caller is in the middle of something. Any thread. False when the program is to end.
bool AskToTryAgain();
