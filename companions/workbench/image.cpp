#include "companions/workbench/image.h"

#include <windows.h>

#include <cstring>
#include <vector>

#include "companions/workbench/ending.h"

namespace {

constexpr std::uint32_t lowest = 0x10000;
constexpr std::uint32_t room = 0x100000;
constexpr std::uint32_t pageSize = 0x1000;
constexpr WORD arm = 0x01c0;
constexpr std::uint32_t byNumber = 0x80000000;

/// Kept from the start on, before any library takes it.
const void* const place = VirtualAlloc(reinterpret_cast<void*>(lowest), room, MEM_RESERVE, PAGE_NOACCESS);

template <class Thing>
Thing* At(std::uint32_t address) {
    return reinterpret_cast<Thing*>(address);
}

std::uint32_t WholePages(std::uint32_t size) {
    return (size + pageSize - 1) & ~(pageSize - 1);
}

std::vector<char> ReadAll(const wchar_t* path) {
    const HANDLE file = CreateFileW(path, GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        EndWith("the phone's executable cannot be opened");
    std::vector<char> bytes(GetFileSize(file, nullptr));
    DWORD read = 0;
    ReadFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &read, nullptr);
    CloseHandle(file);
    return bytes;
}

const IMAGE_NT_HEADERS32* HeadersOf(const char* bytes, std::size_t size) {
    const auto* head = reinterpret_cast<const IMAGE_DOS_HEADER*>(bytes);
    if (size < pageSize / 4 || head->e_magic != IMAGE_DOS_SIGNATURE)
        EndWith("the phone's executable is none");
    const auto* headers = reinterpret_cast<const IMAGE_NT_HEADERS32*>(bytes + head->e_lfanew);
    if (headers->Signature != IMAGE_NT_SIGNATURE || headers->FileHeader.Machine != arm ||
        headers->OptionalHeader.ImageBase != lowest || headers->OptionalHeader.SizeOfImage > room)
        EndWith("the phone's executable is for another machine or place");
    return headers;
}

void BindImports(const Image& image, std::uint32_t directory, const ImportFinder& find) {
    for (auto* entry = At<IMAGE_IMPORT_DESCRIPTOR>(image.base + directory); entry->Name; ++entry) {
        const auto* asked = At<std::uint32_t>(image.base + entry->OriginalFirstThunk);
        auto* given = At<std::uint32_t>(image.base + entry->FirstThunk);
        const char* library = At<const char>(image.base + entry->Name);
        for (; *asked; ++asked, ++given)
            *given = *asked & byNumber
                         ? find(library, nullptr, *asked & ~byNumber)
                         : find(library, At<IMAGE_IMPORT_BY_NAME>(image.base + *asked)->Name, 0);
    }
}

void Protect(const IMAGE_SECTION_HEADER& section) {
    DWORD before = 0;
    if (!(section.Characteristics & IMAGE_SCN_MEM_WRITE))
        VirtualProtect(At<void>(lowest + section.VirtualAddress), section.Misc.VirtualSize, PAGE_READONLY,
                       &before);
}

} // namespace

Image MapImage(const wchar_t* path, const ImportFinder& find) {
    const std::vector<char> bytes = ReadAll(path);
    const IMAGE_NT_HEADERS32& headers = *HeadersOf(bytes.data(), bytes.size());
    const IMAGE_OPTIONAL_HEADER32& facts = headers.OptionalHeader;
    // cppcheck-suppress leakReturnValNotUsed  ; it has its place
    if (!place || !VirtualAlloc(At<void>(lowest), facts.SizeOfImage, MEM_COMMIT, PAGE_READWRITE))
        EndWith("the place of the phone's executable is taken");

    Image image;
    image.base = lowest;
    image.end = lowest + WholePages(facts.SizeOfImage);
    image.entry = lowest + facts.AddressOfEntryPoint;
    image.stackSize = facts.SizeOfStackReserve;
    std::memcpy(At<void>(lowest), bytes.data(), facts.SizeOfHeaders);
    const auto* sections = IMAGE_FIRST_SECTION(&headers);
    for (WORD number = 0; number < headers.FileHeader.NumberOfSections; ++number) {
        const IMAGE_SECTION_HEADER& section = sections[number];
        const std::uint32_t start = lowest + section.VirtualAddress;
        std::memcpy(At<void>(start), bytes.data() + section.PointerToRawData,
                    std::min<std::uint32_t>(section.SizeOfRawData, WholePages(section.Misc.VirtualSize)));
        if (section.Characteristics & IMAGE_SCN_MEM_EXECUTE) {
            image.codeBegin = start;
            image.codeEnd = start + WholePages(section.Misc.VirtualSize);
        }
    }
    BindImports(image, facts.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress, find);
    for (WORD number = 0; number < headers.FileHeader.NumberOfSections; ++number)
        Protect(sections[number]);
    return image;
}
