#pragma once
// How the messaging program is told what to send.

#include <string_view>

#include "common/text.h"

/// Its command line for attaching a file.
OwnedText MailCommandLine(std::wstring_view attachment, std::wstring_view transport);
