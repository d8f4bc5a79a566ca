#include "companions/archiver/archive_kind.h"

#include <array>
#include <string_view>

#include "companions/archiver/lha_reader.h"
#include "companions/archiver/lha_writer.h"
#include "companions/archiver/limits.h"
#include "companions/archiver/zip_reader.h"
#include "companions/archiver/zip_writer.h"

namespace archiver {

const ArchiveKind zipKind{MakeZipWriter, OpenZip, largestExpansion};
const ArchiveKind lhaKind{MakeLhaWriter, OpenLha, 0};

const ArchiveKind& KindByContent(const std::wstring& path, const ArchiveKind& asked) {
    std::array<char, 7> beginning{};
    File archive = File::OpenToRead(path);
    const std::string_view read(beginning.data(), archive.Read(beginning.data(), beginning.size()));
    if (read.starts_with("PK\3\4") || read.starts_with("PK\5\6"))
        return zipKind;
    // The name of a way to pack: "-lh5-", "-lzs-", "-pm2-".
    const bool isLha = read.size() == beginning.size() && read[2] == '-' && read[6] == '-' &&
                       (read[3] == 'l' || read[3] == 'p');
    return isLha ? lhaKind : asked;
}

} // namespace archiver
