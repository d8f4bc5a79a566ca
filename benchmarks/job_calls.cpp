#include "benchmarks/job_calls.h"

#include "common/text.h"

std::vector<SelectionEntry> EntryNamed(const wchar_t* name, ItemKind kind) {
    std::vector<SelectionEntry> entries(1);
    entries[0].kind = kind;
    CopyTextTo(entries[0].folder, L"\\Temp");
    CopyTextTo(entries[0].name, name);
    return entries;
}

Path PathNamed(const wchar_t* text) {
    Path path;
    return path.Assign(text) ? path : Path();
}

void Transferred(Transfer kind, const wchar_t* name, ItemKind itemKind) {
    std::vector<SelectionEntry> entries = EntryNamed(name, itemKind);
    StartTransfer(kind, PathNamed(L"\\Temp"), PathNamed(L"\\Temp\\Target"), entries);
}
