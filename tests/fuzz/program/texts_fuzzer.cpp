// Sizes, numbers, dates and names as texts, in fields of any size and whatever the locale makes of them.

#include <algorithm>

#include "common/text.h"
#include "common/text_format.h"
#include "tests/fuzz/program/host/answers.h"
#include "tests/fuzz/program/input.h"

namespace {

bool IsEnded(std::span<const wchar_t> field) {
    return std::ranges::find(field, L'\0') != field.end();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    const std::size_t capacity = 1 + input.UpTo(80);
    answers.text = input.Text(12);
    LoadDecimalSeparator();
    answers.text = input.Text(90);
    const std::wstring name = input.Text(300);

    std::vector<wchar_t> field(capacity, L'\0');
    const SYSTEMTIME time{
        input.Any<WORD>(), input.Any<WORD>(), 0, input.Any<WORD>(), input.Any<WORD>(), 0, 0, 0};
    FormatDateTime(time, field, input.Any<std::uint8_t>() % 2);
    Expect(IsEnded(field));
    FormatSize(input.Any<std::uint64_t>(), field, L"%s KB", L"%s MB");
    Expect(IsEnded(field));
    CopyTextTo(field, name);
    Expect(IsEnded(field));
    FormatInteger(field);
    Expect(IsEnded(field));
    FormatDecimal(field);
    Expect(IsEnded(field));
    AppendExtension(field, name);
    Expect(IsEnded(field));
    if (const wchar_t* cut = CutExtension(field.data()))
        Expect(cut >= field.data() && cut < field.data() + capacity);
    const std::size_t written =
        FormatText(field, L"%s (%d) %s", name.c_str(), input.Any<int>(), name.c_str());
    Expect(written < capacity && field[written] == L'\0');
    return 0;
}
