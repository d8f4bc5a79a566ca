#include "companions/archiver/lha_header.h"

#include <algorithm>

#include "companions/archiver/crc16.h"
#include "companions/archiver/record.h"

namespace archiver {

namespace {

constexpr std::uint32_t checkField = 0x00, nameField = 0x01, folderField = 0x02, codePageField = 0x46;
constexpr std::uint32_t utf8 = 65001;
constexpr char folderSeparator = '\xFF';
constexpr std::size_t checkPlace = 27; // the header's own check comes first of the fields

/// A field says how long it is before it begins; the 2 bytes of the next one's length are part of it.
void AddField(Record& header, std::uint32_t kind, std::string_view content) {
    header.Word(static_cast<std::uint32_t>(content.size()) + 3).Byte(kind).Text(content);
}

} // namespace

std::string LhaHeader(const LhaMember& member) {
    std::string folder = member.name, name;
    if (member.method != "-lhd-") {
        const std::size_t cut = member.name.rfind('/') + 1;
        name = folder.substr(cut);
        folder.resize(cut);
    } else {
        folder += '/';
    }
    std::replace(folder.begin(), folder.end(), '/', folderSeparator);

    Record rest;
    rest.Text(member.method).Long(member.packedSize).Long(member.size).Long(member.time);
    rest.Byte(0x20).Byte(2).Word(member.check).Byte('W'); // level 2, made on Windows
    AddField(rest, checkField, std::string_view("\0\0", 2));
    if (!name.empty())
        AddField(rest, nameField, name);
    if (!folder.empty())
        AddField(rest, folderField, folder);
    AddField(rest, codePageField, Record().Long(utf8).Bytes());
    rest.Word(0);

    // A header that began with a 0 would be the archive's end: one more byte behind the fields prevents it.
    const std::uint32_t size = rest.Size() + 2;
    const bool filled = (size & 0xFF) == 0;
    std::string header = Record().Word(size + filled).Text(rest.Bytes()).Bytes();
    header.append(filled, '\0');
    header.replace(checkPlace, 2, Record().Word(Crc16(0, header.data(), header.size())).Bytes());
    return header;
}

} // namespace archiver
