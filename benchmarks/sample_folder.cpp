#include "benchmarks/sample_folder.h"

#include "common/text.h"
#include "platform/handles.h"

namespace {

constexpr const wchar_t* extensions[] = {L"txt", L"doc", L"jpg", L"mp3", L"htm", L"log", L"cpp"};

} // namespace

Path SampleFolder(int count) {
    wchar_t text[pathCapacity];
    FormatText(text, L"\\Sample of %d", count);
    Path folder;
    [[maybe_unused]] const bool fits = folder.Assign(text);
    if (!CreateDirectoryW(folder.Text(), nullptr))
        return folder;
    for (int number = 0; number < count; ++number) {
        // Names come in no order, as a folder gives them.
        const unsigned mixed = static_cast<unsigned>(number) * 2654435761U;
        FormatText(text, L"%s\\Entry %08x.%s", folder.Text(), mixed, extensions[number % 7]);
        const FileHandle file(
            CreateFileW(text, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    }
    return folder;
}
