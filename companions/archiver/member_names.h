#pragma once
// Names inside archives: which are safe to make files of, and in which letters old ones are written.

#include <optional>
#include <string>
#include <string_view>

namespace archiver {

/// Why a member must not be extracted under a name.
struct NameVerdict {
    /// The name below the target folder, with backslashes; empty when it is not safe.
    std::wstring path;
    /// Completes "'name' was left out: ..."; empty when the name is safe.
    std::wstring reason;
};

/// Judges a member's name, with slashes or backslashes between its parts: it must stay below the target
/// folder and name nothing but files and folders on every system.
NameVerdict JudgeName(std::wstring_view name);

/// Whether the system takes `part` of a path for one of its devices, whatever the ending: "nul.txt".
bool IsDeviceName(std::wstring_view part);

/// The text of bytes in a code page; nothing when they are not of that code page.
std::optional<std::wstring> DecodeName(std::string_view bytes, unsigned codePage);

/// The bytes of a text in a code page; nothing when it holds letters that the code page lacks.
std::optional<std::string> EncodeName(std::wstring_view text, unsigned codePage);

} // namespace archiver
