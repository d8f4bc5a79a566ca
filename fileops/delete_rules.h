#pragma once
// What deleting asks, and when.

#include <span>

#include "filelist/selection_entry.h"
#include "platform/ce_api.h"

/// Room for any question.
constexpr std::size_t questionCapacity = pathCapacity + 64;
using QuestionText = std::array<wchar_t, questionCapacity>;

/// The question before the job starts.
void WriteOpeningQuestion(QuestionText& text, std::span<const SelectionEntry> entries);

void WriteFolderQuestion(QuestionText& text, std::wstring_view path);

/// The question about a file with these attributes. False when it can go without one.
bool WriteFileQuestion(QuestionText& text, std::wstring_view path, DWORD attributes);

/// The mode a job begins with: a single entry has been named in the opening question already.
int FirstDeleteMode(std::size_t entryCount);

/// Whether a job in this mode asks.
bool DeleteAsks(int mode);
