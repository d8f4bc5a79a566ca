#include "common/outside_path.h"

#include "platform/ce_api.h"

bool TakeOutsidePath(std::wstring_view text, Path& path) {
    Path given;
    wchar_t resolved[pathCapacity] = L"";
    if (!given.Assign(text) || !ce::ResolvePath(given.Text(), resolved, static_cast<int>(pathCapacity)))
        return false;
    const std::wstring_view taken = resolved;
    return path.Assign(taken == L"\\" ? std::wstring_view() : taken);
}

bool TakeOutsideProgram(std::wstring_view text, Path& program) {
    return text.find_first_of(L"\\/:") == std::wstring_view::npos ? program.Assign(text)
                                                                  : TakeOutsidePath(text, program);
}
