#include "platform/desktop/hand.h"

#include <algorithm>
#include <array>
#include <iterator>

#include <ntsecapi.h>

#include "platform/desktop/device_path.h"
#include "platform/desktop/rooted_path.h"

namespace {

constexpr DWORD handComesWithin = 15000; // milliseconds
constexpr wchar_t handName[] = L"hosthand";

/// A folder of the host's system that the hand and its meeting place lie in.
std::vector<wchar_t> SystemPlace(std::wstring_view name) {
    std::array<wchar_t, MAX_PATH> folder{};
    const UINT length = GetWindowsDirectoryW(folder.data(), MAX_PATH);
    std::vector<wchar_t> path(folder.begin(), folder.begin() + length);
    path.push_back(L'\\');
    path.insert(path.end(), name.begin(), name.end());
    path.push_back(L'\0');
    return path;
}

/// A word that nobody else has.
using Token = std::array<wchar_t, 33>;
Token NewToken() {
    std::array<unsigned char, 16> bytes{};
    RtlGenRandom(bytes.data(), bytes.size());
    Token token{};
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        token[2 * i] = L"0123456789abcdef"[bytes[i] >> 4];
        token[2 * i + 1] = L"0123456789abcdef"[bytes[i] & 15];
    }
    return token;
}

/// Starts the hand in the device's root.
bool StartProcess(std::wstring_view word) {
    const std::vector<wchar_t> program = SystemPlace(handName);
    const std::vector<wchar_t> root = FullPath(L"\\");
    std::vector<wchar_t> command(handName, handName + std::size(handName) - 1);
    if (!word.empty())
        command.push_back(L' ');
    command.insert(command.end(), word.begin(), word.end());
    command.push_back(L'\0');
    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    // No handles come back for the host's processes: what stands here afterwards are some others' of ours.
    PROCESS_INFORMATION unused{};
    return !root.empty() && ::CreateProcessW(program.data(), command.data(), nullptr, nullptr, FALSE, 0,
                                             nullptr, root.data(), &startup, &unused);
}

HANDLE OpenEnd(std::wstring_view place, std::wstring_view end, DWORD access) {
    std::vector<wchar_t> path(place.begin(), place.end());
    path.insert(path.end(), end.begin(), end.end());
    path.push_back(L'\0');
    return CreateFileW(path.data(), access, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0,
                       nullptr);
}

} // namespace

bool HasHand() {
    static const bool isWine = GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
    return isWine;
}

std::optional<std::vector<char>> HandName(std::wstring_view name) {
    if (name.empty())
        return std::vector<char>();
    const int size = static_cast<int>(name.size());
    const int length =
        WideCharToMultiByte(CP_UTF8, WC_ERR_INVALID_CHARS, name.data(), size, nullptr, 0, nullptr, nullptr);
    if (length <= 0)
        return std::nullopt;
    std::vector<char> bytes(static_cast<std::size_t>(length));
    WideCharToMultiByte(CP_UTF8, 0, name.data(), size, bytes.data(), length, nullptr, nullptr);
    return bytes;
}

std::optional<std::vector<char>> HandPath(const wchar_t* path) {
    if (*path == L'\0')
        return std::vector<char>();
    const DevicePath device(path);
    if (!device)
        return std::nullopt;
    std::wstring_view rooted = device.Rooted();
    rooted.remove_prefix(1);
    auto bytes = HandName(rooted);
    if (bytes)
        std::ranges::replace(*bytes, '\\', '/');
    return bytes;
}

bool Hand::Start() {
    const Token token = NewToken();
    std::array<wchar_t, token.size() + 5> name{L'h', L'a', L'n', L'd', L'.'};
    std::ranges::copy(token, name.begin() + 5);
    if (!StartProcess(token.data()) || !Meet(SystemPlace(name.data()).data())) {
        End();
        return false;
    }
    return true;
}

/// Waits until the hand has made the meeting place, and opens both ways.
bool Hand::Meet(std::wstring_view place) {
    const DWORD start = GetTickCount();
    while (!ask_) {
        ask_.Reset(OpenEnd(place, L"\\ask", GENERIC_WRITE));
        if (!ask_ && GetTickCount() - start > handComesWithin)
            return false;
        if (!ask_)
            Sleep(1);
    }
    tell_.Reset(OpenEnd(place, L"\\tell", GENERIC_READ));
    return static_cast<bool>(tell_);
}

bool Hand::Send(const std::vector<std::byte>& message) {
    DWORD written = 0;
    const auto size = static_cast<DWORD>(message.size());
    return size > 0 && ask_ && WriteFile(ask_.Get(), message.data(), size, &written, nullptr) &&
           written == size;
}

bool Hand::ReadAll(void* data, DWORD size) {
    auto* next = static_cast<std::byte*>(data);
    while (size > 0) {
        DWORD read = 0;
        if (!tell_ || !ReadFile(tell_.Get(), next, size, &read, nullptr) || read == 0)
            return false;
        next += read;
        size -= read;
    }
    return true;
}

bool Hand::Read(HandMessage& message) {
    hand::Header header{};
    if (!ReadAll(&header, sizeof(header)) || header.length > hand::longestMessage)
        return false;
    message.kind = static_cast<hand::Kind>(header.kind);
    message.fields.resize(header.length);
    return ReadAll(message.fields.data(), header.length);
}

void Hand::End() {
    ask_.Reset();
    tell_.Reset();
}

DWORD ErrorOfHost(std::uint32_t number) {
    struct Pair {
        std::uint32_t host;
        DWORD error;
    };
    constexpr Pair pairs[] = {
        {1, ERROR_ACCESS_DENIED},         // EPERM
        {2, ERROR_FILE_NOT_FOUND},        // ENOENT
        {13, ERROR_ACCESS_DENIED},        // EACCES
        {16, ERROR_SHARING_VIOLATION},    // EBUSY
        {17, ERROR_ALREADY_EXISTS},       // EEXIST
        {18, ERROR_NOT_SAME_DEVICE},      // EXDEV
        {20, ERROR_PATH_NOT_FOUND},       // ENOTDIR
        {21, ERROR_ACCESS_DENIED},        // EISDIR
        {28, ERROR_DISK_FULL},            // ENOSPC
        {30, ERROR_WRITE_PROTECT},        // EROFS
        {36, ERROR_FILENAME_EXCED_RANGE}, // ENAMETOOLONG
        {39, ERROR_DIR_NOT_EMPTY},        // ENOTEMPTY
    };
    const Pair* found = std::ranges::find(pairs, number, &Pair::host);
    return found != std::end(pairs) ? found->error : ERROR_GEN_FAILURE;
}

BOOL AskHandOnce(hand::MessageWriter request) {
    Hand hand;
    HandMessage message;
    if (!hand.Start() || !hand.Send(request.Finish())) {
        SetLastError(ERROR_NOT_READY);
        return FALSE;
    }
    while (hand.Read(message)) {
        if (message.kind != hand::Kind::Result)
            continue;
        hand::MessageReader fields = message.Reader();
        const bool isDone = fields.Number() == static_cast<std::uint32_t>(hand::ResultCode::Done);
        if (!isDone)
            SetLastError(ErrorOfHost(fields.Number()));
        return isDone;
    }
    SetLastError(ERROR_NOT_READY);
    return FALSE;
}

void SweepLeftovers() {
    if (HasHand())
        StartProcess({});
}
