#include "app/start_folder.h"

#include <cwchar>
#include <string_view>

namespace {

constexpr std::wstring_view folderPrefix = L"/FOLDER:";

} // namespace

wchar_t* ParseCommandLine(wchar_t* commandLine) {
    const std::wstring_view text(commandLine);
    if (text.starts_with(folderPrefix))
        return commandLine + folderPrefix.size();
    if (text.empty())
        return nullptr;
    if (*commandLine != L'"')
        return commandLine;
    wchar_t* path = commandLine + 1;
    if (wchar_t* quote = std::wcschr(path, L'"'))
        *quote = L'\0';
    return path;
}

bool ReadHandOver(const COPYDATASTRUCT* data, Path& path) {
    if (!data || data->dwData != COPYDATA_OPEN_FOLDER || !data->lpData)
        return false;
    if (data->cbData < sizeof(wchar_t) || data->cbData % sizeof(wchar_t) != 0 ||
        data->cbData > pathCapacity * sizeof(wchar_t))
        return false;
    const auto* text = static_cast<const wchar_t*>(data->lpData);
    const std::size_t length = data->cbData / sizeof(wchar_t) - 1;
    if (text[length] != L'\0')
        return false;
    return path.Assign(std::wstring_view(text));
}
