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
