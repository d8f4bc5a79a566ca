#include "companions/archiver/lha_names.h"

#include <algorithm>

#include <windows.h>

#include "companions/archiver/member_names.h"

namespace archiver {

namespace {

constexpr unsigned japaneseLetters = 932, dosLetters = 437;
constexpr std::size_t levelPlace = 20, nameLengthPlace = 21, namePlace = 22;
constexpr char nameField = 1, folderField = 2;
constexpr char folderSeparator = '\xFF';

/// A number of the header, lowest byte first; 0 where the header has ended.
std::size_t Number(std::string_view header, std::size_t place, std::size_t bytes) {
    std::size_t number = 0;
    for (std::size_t i = 0; i < bytes && place + i < header.size(); ++i)
        number |= static_cast<std::size_t>(static_cast<unsigned char>(header[place + i])) << 8 * i;
    return number;
}

/// LHA archives do not say in which letters their names are; most old ones are from Japan.
std::wstring Decode(std::string_view bytes) {
    bytes = bytes.substr(0, bytes.find('\0')); // some add a comment behind a zero
    for (const unsigned letters : {static_cast<unsigned>(CP_UTF8), japaneseLetters, dosLetters})
        if (std::optional<std::wstring> name = DecodeName(bytes, letters))
            return *name;
    return {};
}

/// A folder's parts, each ended by its own separator. That byte is no letter in any of the alphabets.
std::wstring DecodeFolder(std::string_view bytes) {
    std::wstring folder;
    while (!bytes.empty()) {
        const std::size_t end = std::min(bytes.find(folderSeparator), bytes.size());
        folder += Decode(bytes.substr(0, end)) + L'\\';
        bytes.remove_prefix(std::min(end + 1, bytes.size()));
    }
    return folder;
}

/// Where the chain of fields begins, and how wide their lengths are.
struct Fields {
    std::size_t place;
    std::size_t width;
};

Fields FieldsOf(std::string_view header) {
    switch (Number(header, levelPlace, 1)) {
    case 1:
        return {Number(header, 0, 1),
                2}; // the last two bytes of the first part, which is 2 longer than it says
    case 2:
        return {24, 2};
    case 3:
        return {28, 4};
    default:
        return {header.size(), 2};
    }
}

} // namespace

std::wstring LhaName(std::string_view header) {
    std::wstring name, folder;
    if (Number(header, levelPlace, 1) < 2 && header.size() > namePlace)
        name = Decode(header.substr(namePlace, Number(header, nameLengthPlace, 1)));
    Fields fields = FieldsOf(header);
    while (const std::size_t size = Number(header, fields.place, fields.width)) {
        const std::size_t start = fields.place + fields.width;
        if (size <= fields.width || start + size - fields.width > header.size())
            break;
        const std::string_view content = header.substr(start + 1, size - fields.width - 1);
        if (header[start] == nameField)
            name = Decode(content);
        else if (header[start] == folderField)
            folder = DecodeFolder(content);
        fields.place += size;
    }
    return folder + name;
}

} // namespace archiver
