#include "platform/ce_api.h"

#include "platform/handles.h"

namespace {

/// Calls `name` of the host's network library; where there is none the call fails as it would without a
/// network.
template <class... Arguments>
DWORD CallNetwork(const char* name, Arguments... arguments) {
    const LibraryHandle library(LoadLibraryW(L"mpr.dll"));
    if (!library)
        return ERROR_NO_NETWORK;
    using Call = DWORD(WINAPI*)(Arguments...);
    const auto call = reinterpret_cast<Call>(reinterpret_cast<void*>(GetProcAddress(library.Get(), name)));
    return call != nullptr ? call(arguments...) : ERROR_NO_NETWORK;
}

} // namespace

namespace ce {

DWORD WNetConnectionDialog1W(CONNECTDLGSTRUCTW* request) {
    return CallNetwork("WNetConnectionDialog1W", request);
}

DWORD WNetDisconnectDialog(HWND owner, DWORD type) {
    return CallNetwork("WNetDisconnectDialog", owner, type);
}

} // namespace ce
