#include "tests/support/device.h"

#include <algorithm>
#include <memory>
#include <stdexcept>

#include "tests/support/file_places.h"
#include "tests/support/host.h"
#include "tests/support/text.h"

namespace {

/// Keys as they were before a test first touched them.
std::map<std::wstring, std::unique_ptr<registry::Snapshot>> preserved;

std::string Quoted(const std::string& text) {
    std::string quoted = "'";
    for (const char character : text)
        quoted += character == '\'' ? std::string("'\\''") : std::string(1, character);
    return quoted + "'";
}

std::string HostParent(const std::string& name) {
    const std::size_t slash = name.rfind('/');
    return slash == std::string::npos ? "." : name.substr(0, slash);
}

/// A form of the device's path in which no name means anything but itself, "NUL" neither.
std::wstring LetterForLetter(const std::wstring& path) {
    return path.starts_with(L'\\') ? L"\\\\?\\E:" + path : path;
}

constexpr DWORD shared = FILE_SHARE_READ | FILE_SHARE_WRITE;

} // namespace

HeldFile::HeldFile(const std::wstring& path, DWORD access, DWORD sharing, DWORD creation)
    : handle_(CreateFileW(path.c_str(), access, sharing, nullptr, creation, FILE_FLAG_BACKUP_SEMANTICS,
                          nullptr)) {
    if (handle_ == INVALID_HANDLE_VALUE)
        throw std::runtime_error("cannot open " + Narrow(path));
}

Device::Device() {
    RunOnHost("find . -mindepth 1 -type d ! -perm -700 -exec chmod u+rwx {} \\;\n"
              "find . -mindepth 1 -delete\n"
              "rm -rf \"$TARVIK_WORK/cards\"\n"
              "cp -a \"$TARVIK_DEVICE_SEED/.\" .");
    registry::DeleteKey(L"HKCU\\Software\\Helvane");
}

Device::~Device() {
    for (const auto& [key, snapshot] : preserved)
        snapshot->Restore();
    preserved.clear();
}

void Device::File(const std::wstring& path, std::string_view content) {
    Folder(FolderOf(path));
    const HeldFile file(path, GENERIC_WRITE, shared, CREATE_ALWAYS);
    DWORD written = 0;
    WriteFile(file.Get(), content.data(), static_cast<DWORD>(content.size()), &written, nullptr);
}

void Device::FileOfSize(const std::wstring& path, std::uint64_t bytes) {
    Folder(FolderOf(path));
    const HeldFile file(path, GENERIC_WRITE, shared, CREATE_ALWAYS);
    LARGE_INTEGER end;
    end.QuadPart = static_cast<LONGLONG>(bytes);
    if (!SetFilePointerEx(file.Get(), end, nullptr, FILE_BEGIN) || !SetEndOfFile(file.Get()))
        throw std::runtime_error("cannot make the file " + Narrow(path) + " so large");
}

void Device::Folder(const std::wstring& path) {
    if (path.empty() || Exists(path))
        return;
    Folder(FolderOf(path));
    if (!CreateDirectoryW(path.c_str(), nullptr))
        throw std::runtime_error("cannot make the folder " + Narrow(path));
}

void Device::Files(const std::wstring& folder, const std::wstring& prefix, int count) {
    Folder(folder);
    std::string place = "." + Narrow(folder);
    std::replace(place.begin(), place.end(), '\\', '/');
    RunOnHost("cd " + Quoted(place) + "\nseq -f " + Quoted(Narrow(prefix) + "%.0f") + " 0 " +
              std::to_string(count - 1) + " | tr '\\n' '\\0' | xargs -0 touch --");
}

void Device::Remove(const std::wstring& path) {
    const std::wstring place = LetterForLetter(path);
    if (!DeleteFileW(place.c_str()) && !RemoveDirectoryW(place.c_str()))
        throw std::runtime_error("cannot remove " + Narrow(path));
}

void Device::RemoveAll() {
    RunOnHost("find . -mindepth 1 -maxdepth 1 ! -name 'Program Files' -exec rm -rf {} +");
}

void Device::SetAttributes(const std::wstring& path, DWORD attributes) {
    if (!SetFileAttributesW(path.c_str(), attributes))
        throw std::runtime_error("cannot set the attributes of " + Narrow(path));
}

void Device::SetWriteTime(const std::wstring& path, const SYSTEMTIME& utc) {
    const HeldFile file(path, FILE_WRITE_ATTRIBUTES, shared, OPEN_EXISTING);
    FILETIME time{};
    if (!SystemTimeToFileTime(&utc, &time) || !SetFileTime(file.Get(), nullptr, nullptr, &time))
        throw std::runtime_error("cannot set the time of " + Narrow(path));
}

HeldFile Device::Hold(const std::wstring& path) {
    return HeldFile(path, GENERIC_READ, 0, OPEN_EXISTING);
}

bool Device::Exists(const std::wstring& path) const {
    return Attributes(path) != INVALID_FILE_ATTRIBUTES;
}

bool Device::IsFolder(const std::wstring& path) const {
    return Exists(path) && (Attributes(path) & FILE_ATTRIBUTE_DIRECTORY);
}

DWORD Device::Attributes(const std::wstring& path) const {
    return GetFileAttributesW(path.c_str());
}

std::string Device::Content(const std::wstring& path) const {
    const HeldFile file(LetterForLetter(path), GENERIC_READ, shared, OPEN_EXISTING);
    std::string content(GetFileSize(file.Get(), nullptr), '\0');
    DWORD read = 0;
    ReadFile(file.Get(), content.data(), static_cast<DWORD>(content.size()), &read, nullptr);
    return content;
}

std::vector<std::wstring> Device::NamesIn(const std::wstring& folder) const {
    std::vector<std::wstring> names;
    WIN32_FIND_DATAW found;
    const HANDLE find = FindFirstFileW((folder + L"\\*").c_str(), &found);
    for (BOOL more = find != INVALID_HANDLE_VALUE; more; more = FindNextFileW(find, &found))
        if (const std::wstring name = found.cFileName; name != L"." && name != L"..")
            names.push_back(name);
    FindClose(find);
    std::sort(names.begin(), names.end());
    return names;
}

void Device::HostFile(const std::string& name, std::string_view content) {
    RunOnHost("mkdir -p " + Quoted(HostParent(name)) + "\nprintf %s " + Quoted(std::string(content)) + " >" +
              Quoted(name));
}

void Device::HostFiles(const std::vector<std::string>& names) {
    std::string script;
    for (const std::string& name : names)
        script += "mkdir -p " + Quoted(HostParent(name)) + "\n: >" + Quoted(name) + "\n";
    RunOnHost(script);
}

void Device::HostLink(const std::string& name, const std::string& target) {
    RunOnHost("mkdir -p " + Quoted(HostParent(name)) + "\nln -s " + Quoted(target) + " " + Quoted(name));
}

void Device::HostFolder(const std::string& name) {
    RunOnHost("mkdir -p " + Quoted(name));
}

void Device::Forbid(const std::string& name) {
    RunOnHost("chmod 000 " + Quoted(name));
}

void Device::StorageCard(const std::string& name, const std::vector<std::string>& files) {
    std::string script = "card=\"$TARVIK_WORK/cards/\"" + Quoted(name) + "\nmkdir -p \"$card\"\n";
    for (const std::string& file : files)
        script +=
            "mkdir -p \"$card/\"" + Quoted(HostParent(file)) + "\ntouch \"$card/\"" + Quoted(file) + "\n";
    RunOnHost(script + "ln -s \"$card\" " + Quoted(name));
}

void Device::RemoveStorageCard(const std::string& name) {
    RunOnHost("rm " + Quoted(name));
}

void Device::Preserve(const std::wstring& key) {
    auto& snapshot = preserved[key];
    if (!snapshot)
        snapshot = std::make_unique<registry::Snapshot>(key);
}

void Device::Write(const std::wstring& key, const std::wstring& name, const RegistryValue& value) {
    if (!key.starts_with(productKey))
        Preserve(key);
    registry::Write(key, name, value);
}

void Device::WriteText(const std::wstring& key, const std::wstring& name, const std::wstring& text) {
    Write(key, name, RegistryValue::Text(text));
}

void Device::WriteNumber(const std::wstring& key, const std::wstring& name, std::uint32_t number) {
    Write(key, name, RegistryValue::Number(number));
}

void Device::WriteWords(const std::wstring& key, const std::wstring& name,
                        const std::vector<std::uint32_t>& words) {
    Write(key, name, RegistryValue::Binary(words.data(), words.size() * sizeof(std::uint32_t)));
}

bool Device::HasValue(const std::wstring& key, const std::wstring& name) const {
    return registry::Read(key, name).has_value();
}

RegistryValue Device::Value(const std::wstring& key, const std::wstring& name) const {
    const auto value = registry::Read(key, name);
    if (!value)
        throw std::runtime_error("there is no registry value \"" + Narrow(name) + "\" in " + Narrow(key));
    return *value;
}

std::wstring Device::TextValue(const std::wstring& key, const std::wstring& name) const {
    return Value(key, name).AsText();
}

std::uint32_t Device::NumberValue(const std::wstring& key, const std::wstring& name) const {
    return Value(key, name).AsWords().at(0);
}

void Device::SetOption(ListOption option, std::uint32_t value) {
    std::vector<std::uint32_t> words =
        HasValue(settingsKey, L"ListView") ? Value(settingsKey, L"ListView").AsWords() : DefaultListOptions();
    words.at(static_cast<std::size_t>(option)) = value;
    WriteWords(settingsKey, L"ListView", words);
}

std::uint32_t Device::StoredOption(ListOption option) const {
    return Value(settingsKey, L"ListView").AsWords().at(static_cast<std::size_t>(option));
}
