#include "companions/workbench/symbols.h"

#include <cxxabi.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <vector>

namespace {

struct Symbol {
    std::uint32_t address;
    std::uint32_t size;
    std::string name;
};

std::vector<Symbol> functions; // by address

// As the linker's file has them.
struct ElfHeader {
    char mark[16];
    std::uint16_t kind, machine;
    std::uint32_t version, entry, programs, sections, flags;
    std::uint16_t size, programSize, programCount, sectionSize, sectionCount, names;
};
struct ElfSection {
    std::uint32_t name, kind, flags, address, offset, size, link, info, alignment, entrySize;
};
struct ElfSymbol {
    std::uint32_t name, address, size;
    std::uint8_t kind, visibility;
    std::uint16_t section;
};
constexpr std::uint32_t symbolTable = 2;
constexpr std::uint8_t functionKind = 2;

template <class Record>
Record Read(const std::string& bytes, std::size_t offset) {
    Record record{};
    if (offset + sizeof(record) <= bytes.size())
        std::memcpy(&record, bytes.data() + offset, sizeof(record));
    return record;
}

std::string Plain(const char* name) {
    int status = 0;
    char* text = abi::__cxa_demangle(name, nullptr, nullptr, &status);
    std::string plain = text ? text : name;
    std::free(text);
    return plain;
}

void ReadTable(const std::string& bytes, const ElfSection& table, const ElfSection& texts) {
    for (std::uint32_t offset = 0; offset < table.size; offset += sizeof(ElfSymbol)) {
        const auto symbol = Read<ElfSymbol>(bytes, table.offset + offset);
        const std::size_t text = texts.offset + symbol.name;
        if ((symbol.kind & 0xf) == functionKind && symbol.section && text < bytes.size())
            functions.push_back({symbol.address, symbol.size, bytes.c_str() + text});
    }
}

} // namespace

void ReadSymbols(const std::wstring& path) {
    std::FILE* file = _wfopen(path.c_str(), L"rb");
    if (!file)
        return;
    std::string bytes;
    char block[0x10000];
    for (std::size_t got; (got = std::fread(block, 1, sizeof(block), file)) != 0;)
        bytes.append(block, got);
    std::fclose(file);

    const auto head = Read<ElfHeader>(bytes, 0);
    const auto section = [&](std::uint32_t number) {
        return Read<ElfSection>(bytes, head.sections + number * sizeof(ElfSection));
    };
    for (std::uint32_t number = 0; number < head.sectionCount; ++number)
        if (section(number).kind == symbolTable)
            ReadTable(bytes, section(number), section(section(number).link));
    std::sort(functions.begin(), functions.end(),
              [](const Symbol& left, const Symbol& right) { return left.address < right.address; });
}

std::string NameOfPlace(std::uint32_t address) {
    const auto behind =
        std::upper_bound(functions.begin(), functions.end(), address,
                         [](std::uint32_t place, const Symbol& symbol) { return place < symbol.address; });
    if (behind == functions.begin())
        return {};
    const Symbol& symbol = *std::prev(behind);
    const std::uint32_t offset = address - symbol.address;
    if (offset >= std::max<std::uint32_t>(symbol.size, 4))
        return {};
    char text[16];
    std::snprintf(text, sizeof(text), "+0x%x", static_cast<unsigned>(offset));
    return Plain(symbol.name.c_str()) + text;
}
