// Any value of the registry into each kind of record.

#include <algorithm>
#include <array>

#include "common/registry.h"
#include "tests/fuzz/program/host/answers.h"
#include "tests/fuzz/program/input.h"

namespace {

const HKEY key = HKEY_CURRENT_USER;

void IntoText(std::size_t capacity) {
    std::vector<wchar_t> field(capacity, L'x'); // of its own, so that a write past it is seen
    if (ReadText(key, L"Name", field))
        Expect(std::ranges::find(field, L'\0') != field.end());
    else
        Expect(std::ranges::all_of(field, [](wchar_t c) { return c == L'x'; }));
}

void IntoBytes(std::size_t size) {
    std::vector<std::byte> field(size, std::byte{0x5A});
    const auto stored = ReadBytes(key, L"Name", field);
    const std::size_t taken = std::min(stored.value_or(0), size);
    for (std::size_t i = 0; i < size; ++i)
        Expect(field[i] == (i < taken ? static_cast<std::byte>(answers.registryValue[i]) : std::byte{0x5A}));
}

void IntoNumber() {
    std::uint32_t number = 0x5A5A5A5A;
    ReadNumber(key, L"Name", number);
    const std::size_t size = answers.registryFails || answers.registryValue.size() > registryValueLimit
                                 ? 0
                                 : answers.registryValue.size();
    for (std::size_t i = size; i < sizeof(number); ++i)
        Expect((number >> (8 * i) & 0xFF) == 0x5A);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    answers.registryFails = input.Any<std::uint8_t>() == 0;
    const std::size_t capacity = 1 + input.UpTo(300);
    answers.registryValue = input.Rest();
    IntoText(capacity);
    IntoBytes(capacity);
    IntoNumber();
    OpenOrCreateKey(HKEY_CURRENT_USER, L"Software");
    return 0;
}
