#include "companions/archiver/reply.h"

#include <algorithm>

namespace archiver {

void WriteReply(wchar_t* output, unsigned long size, std::wstring_view text) {
    const std::size_t room = std::min(size, largestReply) / sizeof(wchar_t);
    if (!output || room == 0)
        return;
    std::size_t length = std::min(text.size(), room - 1);
    // Not between the halves of one character.
    if (length < text.size() && length > 0 && text[length - 1] >= 0xD800 && text[length - 1] < 0xDC00)
        --length;
    std::copy_n(text.data(), length, output);
    output[length] = L'\0';
}

} // namespace archiver
