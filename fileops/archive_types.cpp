#include "fileops/archive_types.h"

#include "common/path.h"

ArchiveType ArchiveTypeOf(std::wstring_view name) {
    const std::wstring_view extension = ExtensionOf(name);
    if (EqualNoCase(extension, L".LZH"))
        return ArchiveType::Lha;
    return EqualNoCase(extension, L".ZIP") ? ArchiveType::Zip : ArchiveType::None;
}

bool ArchiverAvailability::IsArchiverAvailable(ArchiveType type) const {
    switch (type) {
    case ArchiveType::Lha:
        return lhaAvailable;
    case ArchiveType::Zip:
        return zipAvailable;
    default:
        return false;
    }
}
