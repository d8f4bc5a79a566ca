#include "platform/desktop/host_process.h"

#include <string_view>

namespace {

using HostPathOf = char* (*)(const wchar_t*);

/// Wine's own call that tells a path on the host; null on Windows.
HostPathOf HostPathCall() {
    static const auto call = reinterpret_cast<HostPathOf>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"kernel32"), "wine_get_unix_file_name")));
    return call;
}

} // namespace

bool HasHostPrograms() {
    return HostPathCall() != nullptr;
}

std::vector<wchar_t> HostPath(const wchar_t* path) {
    constexpr UINT hostCodePage = 65010; // the host's file names, whatever its locale
    char* bytes = HostPathCall()(path);
    if (bytes == nullptr)
        return {};
    std::vector<wchar_t> text(
        static_cast<std::size_t>(MultiByteToWideChar(hostCodePage, 0, bytes, -1, nullptr, 0)));
    MultiByteToWideChar(hostCodePage, 0, bytes, -1, text.data(), static_cast<int>(text.size()));
    // A name of the host's that is no proper text would arrive there as another name.
    std::vector<char> back(static_cast<std::size_t>(
        WideCharToMultiByte(hostCodePage, 0, text.data(), -1, nullptr, 0, nullptr, nullptr)));
    WideCharToMultiByte(hostCodePage, 0, text.data(), -1, back.data(), static_cast<int>(back.size()), nullptr,
                        nullptr);
    if (back.empty() || std::string_view(back.data()) != bytes)
        text.clear();
    HeapFree(GetProcessHeap(), 0, bytes);
    return text;
}

bool StartOnHost(const wchar_t* program, const wchar_t* words, std::span<const std::vector<wchar_t>> paths) {
    constexpr std::size_t longest = 32'000; // what a command line may hold
    std::vector<wchar_t> command(words, words + std::wstring_view(words).size());
    for (const std::vector<wchar_t>& path : paths) {
        const std::wstring_view text(path.data(), path.empty() ? 0 : path.size() - 1);
        if (text.empty() || text.find(L'"') != std::wstring_view::npos) {
            SetLastError(ERROR_PATH_NOT_FOUND);
            return false;
        }
        for (const std::wstring_view part : {std::wstring_view(L" \""), text, std::wstring_view(L"\"")})
            command.insert(command.end(), part.begin(), part.end());
    }
    command.push_back(L'\0');
    if (command.size() > longest) {
        SetLastError(ERROR_FILENAME_EXCED_RANGE);
        return false;
    }
    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    // No handles come back for the host's processes: what stands here afterwards are some others' of ours.
    PROCESS_INFORMATION unused{};
    return ::CreateProcessW(program, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                            &unused) != FALSE;
}
