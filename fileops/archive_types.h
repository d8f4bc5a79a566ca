#pragma once
// Which files are archives, and which archives can be handled.

#include <cstdint>
#include <string_view>

/// As the options store it.
enum class ArchiveType : std::uint32_t { None = 0, Lha = 1, Zip = 2 };

/// The type by the name's extension.
ArchiveType ArchiveTypeOf(std::wstring_view name);

/// The types that an archiver was found for.
struct ArchiverAvailability {
    bool lhaAvailable = false;
    bool zipAvailable = false;

    bool IsArchiverAvailable(ArchiveType type) const;
    bool AnyArchiverAvailable() const { return lhaAvailable || zipAvailable; }
};
