// Any bytes as the resource of a soft-key bar.

#include <algorithm>

#include "platform/desktop/menu_bar_layout.h"
#include "tests/fuzz/program/host/answers.h"
#include "tests/fuzz/program/input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    SHMENUBARINFO info{};
    info.dwFlags = input.Any<std::uint8_t>();
    answers.text = input.Text(100);
    answers.resource = input.Rest();
    answers.resource.shrink_to_fit();
    if (const auto layout = ReadMenuBarLayout(info)) {
        Expect(layout->keyCount <= static_cast<int>(layout->keys.size()));
        for (const MenuBarKey& key : layout->keys)
            Expect(std::ranges::find(key.text, L'\0') != key.text.end());
    }
    KeyForButton(nullptr);
    return 0;
}
