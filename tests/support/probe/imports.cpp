#include "tests/support/probe/imports.h"

#include <cstddef>
#include <cstring>

#include <windows.h>

namespace {

void Replace(IMAGE_THUNK_DATA& entry, const Patch& patch) {
    *patch.original = reinterpret_cast<void*>(entry.u1.Function);
    DWORD protection = 0;
    VirtualProtect(&entry.u1.Function, sizeof(void*), PAGE_READWRITE, &protection);
    entry.u1.Function = reinterpret_cast<ULONG_PTR>(patch.replacement);
    VirtualProtect(&entry.u1.Function, sizeof(void*), protection, &protection);
}

void ReplaceImportsOf(std::byte* base, const IMAGE_IMPORT_DESCRIPTOR& library,
                      std::span<const Patch> patches) {
    const auto* name = reinterpret_cast<const IMAGE_THUNK_DATA*>(base + library.OriginalFirstThunk);
    auto* entry = reinterpret_cast<IMAGE_THUNK_DATA*>(base + library.FirstThunk);
    for (; name->u1.AddressOfData; ++name, ++entry) {
        if (IMAGE_SNAP_BY_ORDINAL(name->u1.Ordinal))
            continue;
        const auto* import = reinterpret_cast<const IMAGE_IMPORT_BY_NAME*>(base + name->u1.AddressOfData);
        for (const Patch& patch : patches)
            if (std::strcmp(import->Name, patch.name) == 0)
                Replace(*entry, patch);
    }
}

void* FunctionOf(const wchar_t* library, const char* name) {
    return reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(library), name));
}

/// Has the phone's own executable call the replacement, when the workbench runs it: what that takes from the
/// phone stands in no table of the process.
void ReplaceCallOfPhone(const Patch& patch) {
    using ReplaceCall = bool (*)(void* function, void* replacement);
    const auto replace = reinterpret_cast<ReplaceCall>(FunctionOf(nullptr, "ReplaceCall"));
    for (const wchar_t* library : {L"user32", L"advapi32"}) {
        void* const original = FunctionOf(library, patch.name);
        if (replace && original && replace(original, patch.replacement))
            *patch.original = original;
    }
}

} // namespace

void ReplaceImports(std::span<const Patch> patches) {
    auto* const base = reinterpret_cast<std::byte*>(GetModuleHandleW(nullptr));
    const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
    const auto* headers = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
    const IMAGE_DATA_DIRECTORY& imports = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    const auto* library = reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(base + imports.VirtualAddress);
    for (; library->Name; ++library)
        ReplaceImportsOf(base, *library, patches);
    for (const Patch& patch : patches)
        ReplaceCallOfPhone(patch);
}
