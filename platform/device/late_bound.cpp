// Calls that the ROM of a Smartphone may lack, where importing one of them would keep the whole program from
// starting: each is looked for when it is first needed, and done without when it is not there.

#include "platform/ce_api.h"

namespace {

/// Looks `name` up in a library that the program has loaded already; null when it is not there.
template <class Function>
Function* Find(const wchar_t* library, const wchar_t* name) {
    const FARPROC found = GetProcAddressW(GetModuleHandleW(library), name);
    // By way of void*: the two types of function have nothing in common.
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(found));
}

template <class Function>
Function* FindInCore(const wchar_t* name) {
    return Find<Function>(L"coredll.dll", name);
}

constexpr WORD sendBackOrdinal = 97;

} // namespace

BOOL ce::GetOpenFileNameW(OPENFILENAMEW* request) {
    static auto* const call = FindInCore<BOOL(OPENFILENAMEW*)>(L"GetOpenFileNameW");
    return call ? call(request) : FALSE;
}

BOOL ce::GetSaveFileNameW(OPENFILENAMEW* request) {
    static auto* const call = FindInCore<BOOL(OPENFILENAMEW*)>(L"GetSaveFileNameW");
    return call ? call(request) : FALSE;
}

BOOL ce::SipGetInfo(SIPINFO* info) {
    static auto* const call = FindInCore<BOOL(SIPINFO*)>(L"SipGetInfo");
    if (call)
        return call(info);
    info->fdwFlags = SIPF_OFF;
    return SystemParametersInfoW(SPI_GETWORKAREA, 0, &info->rcVisibleDesktop, 0);
}

BOOL ce::SipShowIM(DWORD flags) {
    static auto* const call = FindInCore<BOOL(DWORD)>(L"SipShowIM");
    return call ? call(flags) : FALSE;
}

void ce::SHSendBackToFocusWindow(UINT message, WPARAM wParam, LPARAM lParam) {
    static auto* const call =
        Find<void(UINT, WPARAM, LPARAM)>(L"aygshell.dll", MAKEINTRESOURCEW(sendBackOrdinal));
    if (call)
        call(message, wParam, lParam);
    else
        PostMessageW(GetFocus(), WM_CHAR, VK_BACK, 1);
}

DWORD ce::WNetConnectionDialog1W(CONNECTDLGSTRUCTW* request) {
    static auto* const call = FindInCore<DWORD(CONNECTDLGSTRUCTW*)>(L"WNetConnectionDialog1W");
    return call ? call(request) : ERROR_NOT_SUPPORTED;
}

DWORD ce::WNetDisconnectDialog(HWND owner, DWORD type) {
    static auto* const call = FindInCore<DWORD(HWND, DWORD)>(L"WNetDisconnectDialog");
    return call ? call(owner, type) : ERROR_NOT_SUPPORTED;
}
