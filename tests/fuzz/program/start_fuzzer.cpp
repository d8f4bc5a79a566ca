// Any command line, and any message that claims to hand a folder over.

#include <algorithm>

#include "app/start_folder.h"
#include "tests/fuzz/program/input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    std::wstring line = input.Text(400);
    std::vector<wchar_t> buffer(line.c_str(), line.c_str() + line.size() + 1);
    if (const wchar_t* folder = ParseCommandLine(buffer.data()))
        Expect(folder >= buffer.data() && folder < buffer.data() + buffer.size());
    else
        Expect(line.empty());

    COPYDATASTRUCT message{};
    message.dwData = input.Bool() ? COPYDATA_OPEN_FOLDER : input.Any<ULONG_PTR>();
    const std::size_t said = input.UpTo(2 * pathCapacity + 2);
    const std::vector<std::uint8_t> block = input.Rest();
    message.cbData = static_cast<DWORD>(std::min(said, block.size()));
    std::vector<std::uint8_t> exact(block.begin(),
                                    block.begin() + message.cbData); // nothing may be read behind it
    message.lpData = exact.empty() ? nullptr : exact.data();
    Path path;
    const bool before = path.Assign(L"\\Before");
    Expect(before);
    if (ReadHandOver(&message, path))
        Expect(path.Length() * sizeof(wchar_t) < message.cbData);
    else
        Expect(path.View() == L"\\Before");
    Expect(!ReadHandOver(nullptr, path));
    return 0;
}
