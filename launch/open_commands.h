#pragma once
// The texts by which the registry says what opens a kind of file, taken apart and put together.

#include <optional>
#include <string_view>

#include "common/path.h"
#include "common/text.h"

struct OpenCommand {
    std::wstring_view program;    // as written, without quotes
    std::wstring_view parameters; // what follows it, without leading blanks
};

/// Takes a command line apart at the first ".exe". Nothing when it has none.
std::optional<OpenCommand> ParseOpenCommand(std::wstring_view command);

/// Where a command's program is: one without a folder is taken to live in the system folder. False when the
/// path would be too long.
[[nodiscard]] bool LocateProgram(std::wstring_view program, std::wstring_view systemFolder, Path& path);

/// The parameters with the document in the place of their first "%1". Every other percent sign is only a
/// character, and without a "%1" the document is not named at all.
OwnedText FillInDocument(std::wstring_view parameters, std::wstring_view document);

/// A program as the handler of a kind of file; what is empty is made up from the program.
struct Association {
    std::wstring_view program; // the full path
    std::wstring_view className = {};
    std::wstring_view description = {};
    std::wstring_view parameters = {};
    std::wstring_view iconFile = {};
    int iconIndex = 0;
};

struct AssociationTexts {
    OwnedText className;
    OwnedText description;
    OwnedText command;
    OwnedText iconSource;
};

/// What is to be stored for an association.
AssociationTexts ComposeAssociation(const Association& association, std::wstring_view systemFolder);
