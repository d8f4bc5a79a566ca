#include "tests/fuzz/memory_disk.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>

#include "companions/archiver/failure.h"
#include "companions/archiver/file.h"
#include "companions/archiver/member_names.h"

namespace {

constexpr std::uint64_t room = 1 << 20;
const std::wstring target = L"\\\\?\\E:\\Out";
const std::wstring archivePath = L"\\\\?\\E:\\a.zip";

struct Node {
    DWORD attributes = FILE_ATTRIBUTE_NORMAL;
    std::uint64_t size = 0;
    std::wstring path;
};

struct OpenFile {
    std::wstring key;
    std::uint64_t position = 0;
};

std::map<std::wstring, Node> nodes;
const std::uint8_t* archiveBytes;
std::size_t archiveSize;
std::uint64_t written;

[[noreturn]] void Complain(const char* what, const std::wstring& path) {
    std::fprintf(stderr, "%s: %ls\n", what, path.c_str());
    std::abort();
}

std::wstring KeyOf(const std::wstring& path) {
    return archiver::Folded(path);
}

/// Everything that is made has a name that is one everywhere, in a folder that is there and no link.
void ExpectSafe(const std::wstring& path) {
    if (path == target)
        return;
    if (!path.starts_with(target + L'\\'))
        Complain("outside of the target", path);
    if (archiver::JudgeName(std::wstring_view(path).substr(target.size() + 1)).path !=
        path.substr(target.size() + 1))
        Complain("no name for a file", path);
    if (KeyOf(path).starts_with(KeyOf(target + L"\\link\\")))
        Complain("through a link", path);
    const auto parent = nodes.find(KeyOf(std::wstring(archiver::ParentOf(path))));
    if (parent == nodes.end() || (parent->second.attributes & FILE_ATTRIBUTE_DIRECTORY) == 0)
        Complain("in no folder", path);
}

} // namespace

void ResetDisk(const std::uint8_t* archive, std::size_t size) {
    archiveBytes = archive;
    archiveSize = size;
    written = 0;
    nodes.clear();
    const auto add = [](const std::wstring& path, DWORD attributes) {
        nodes[KeyOf(path)] = {attributes, 5, path};
    };
    add(archivePath, FILE_ATTRIBUTE_NORMAL);
    add(L"\\\\?\\E:", FILE_ATTRIBUTE_DIRECTORY);
    add(target, FILE_ATTRIBUTE_DIRECTORY);
    add(target + L"\\good.txt", FILE_ATTRIBUTE_NORMAL);
    add(target + L"\\read.txt", FILE_ATTRIBUTE_READONLY);
    add(target + L"\\folder", FILE_ATTRIBUTE_DIRECTORY);
    add(target + L"\\link", FILE_ATTRIBUTE_DIRECTORY);
}

void ExpectNoParts() {
    for (const auto& [key, node] : nodes)
        if (node.path.find(L"~arc") != std::wstring::npos)
            Complain("left behind", node.path);
}

BOOL DeleteFileW(const wchar_t* path) {
    return static_cast<BOOL>(nodes.erase(KeyOf(path)));
}

BOOL SetFileAttributesW(const wchar_t* path, DWORD attributes) {
    nodes[KeyOf(path)].attributes = attributes;
    return 1;
}

namespace archiver {

std::wstring FullPath(std::wstring_view path) {
    std::wstring full = L"\\\\?\\E:" + std::wstring(path);
    while (full.ends_with(L'\\'))
        full.pop_back();
    return full;
}

std::wstring DisplayPath(std::wstring_view fullPath) {
    return std::wstring(fullPath.substr(6));
}

bool DeviceCanName(std::wstring_view fullPath) {
    return DisplayPath(fullPath).size() < 260;
}

DWORD AttributesOf(const std::wstring& path) {
    const auto node = nodes.find(KeyOf(path));
    return node == nodes.end() ? INVALID_FILE_ATTRIBUTES : node->second.attributes;
}

bool MakeFolder(const std::wstring& path) {
    ExpectSafe(path);
    return nodes.try_emplace(KeyOf(path), Node{FILE_ATTRIBUTE_DIRECTORY, 0, path}).second;
}

std::optional<std::uint64_t> FreeSpaceAt(const std::wstring&) {
    return room;
}

std::wstring Folded(std::wstring_view name) {
    std::wstring folded(name);
    for (wchar_t& letter : folded)
        if (letter >= L'a' && letter <= L'z')
            letter -= L'a' - L'A';
    return folded;
}

bool SameName(std::wstring_view a, std::wstring_view b) {
    return Folded(a) == Folded(b);
}

File::File(HANDLE handle, const std::wstring& path) : handle_(handle), path_(path) {}

File::File(File&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)), path_(other.path_) {}

File::~File() {
    delete static_cast<OpenFile*>(handle_);
}

File File::OpenToRead(const std::wstring& path) {
    return OpenToKnow(path);
}

File File::OpenToKnow(const std::wstring& path) {
    if (!nodes.contains(KeyOf(path)))
        throw Failure(L"not there");
    return {new OpenFile{KeyOf(path)}, path};
}

std::wstring PlaceInTheMaking(std::wstring_view folder) {
    return std::wstring(folder) + L"\\~arc0.tmp";
}

File File::OpenToMark(const std::wstring& path) {
    ExpectSafe(path);
    return OpenToKnow(path);
}

std::optional<File> File::TryToCreate(const std::wstring& path, const std::wstring& place) {
    ExpectSafe(path);
    if (!nodes.try_emplace(KeyOf(path), Node{FILE_ATTRIBUTE_NORMAL, 0, path}).second)
        return std::nullopt;
    return File(new OpenFile{KeyOf(path)}, place);
}

std::size_t File::Read(void* buffer, std::size_t size) {
    auto& open = *static_cast<OpenFile*>(handle_);
    const std::size_t read = std::min<std::size_t>(size, archiveSize - open.position);
    if (read > 0)
        std::memcpy(buffer, archiveBytes + open.position, read);
    open.position += read;
    return read;
}

void File::Write(const void*, std::size_t size) {
    written += size;
    if (written > room)
        Complain("more than was free", path_);
    nodes[static_cast<OpenFile*>(handle_)->key].size += size;
}

void File::Seek(std::uint64_t position) {
    static_cast<OpenFile*>(handle_)->position = position;
}

std::uint64_t File::Position() const {
    return static_cast<OpenFile*>(handle_)->position;
}

std::uint64_t File::Size() const {
    const std::wstring& key = static_cast<OpenFile*>(handle_)->key;
    return key == KeyOf(archivePath) ? archiveSize : nodes[key].size;
}

FILETIME File::WriteTime() const {
    return {0, 0x01C00000};
}

void File::SetWriteTime(const FILETIME&) {}

std::wstring File::FinalPath() const {
    const std::wstring& key = static_cast<OpenFile*>(handle_)->key;
    return key == KeyOf(target + L"\\link") ? L"\\\\?\\Z:\\elsewhere" : nodes[key].path;
}

bool File::Rename(const std::wstring& to, bool replace) {
    ExpectSafe(to);
    auto& open = *static_cast<OpenFile*>(handle_);
    const auto there = nodes.find(KeyOf(to));
    if (there != nodes.end() && !replace)
        return false;
    if (there != nodes.end() && there->second.attributes != FILE_ATTRIBUTE_NORMAL)
        throw Failure(L"in the way");
    nodes[KeyOf(to)] = {FILE_ATTRIBUTE_NORMAL, nodes[open.key].size, to};
    nodes.erase(open.key);
    open.key = KeyOf(to);
    return true;
}

} // namespace archiver
