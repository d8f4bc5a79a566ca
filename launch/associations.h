#pragma once
// The file types of the registry: the programs that open them, and how one is made to.

#include <optional>
#include <string_view>
#include <vector>

#include "common/path.h"
#include "common/text.h"
#include "launch/open_commands.h"
#include "platform/ce_api.h"

/// A class of files with the program that opens it.
struct ProgramRecord {
    OwnedText className;
    OwnedText description; // shown to the user
    OwnedText program;     // the full path
    OwnedText parameters;
    int iconIndex = -1; // in the image list of whoever shows it
};

struct ProgramList {
    std::vector<ProgramRecord> records; // in the order of the registry
    PathText extensionClass{};          // the class of the extension asked for; empty when it has none
};

/// What the texts of a class say. Nothing when they name no program, or one that is not there.
std::optional<ProgramRecord> MakeProgramRecord(std::wstring_view className, std::wstring_view description,
                                               std::wstring_view command, std::wstring_view systemFolder);

/// Every class below `root` whose program exists. `extension`, with its dot, is the one extension that counts
/// as a class too.
ProgramList enumeratePrograms(HKEY root, std::wstring_view extension, std::wstring_view systemFolder);

/// Stores the texts as a class. False at the first that cannot be stored.
bool writeAssociation(HKEY root, const AssociationTexts& texts);

/// Makes files of this extension, with its dot, files of the class.
bool setExtensionClass(HKEY root, const wchar_t* extension, const wchar_t* className);
