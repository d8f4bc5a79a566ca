#include "launch/memory_report.h"

#include <array>

#include "common/path.h"
#include "common/text.h"
#include "common/text_format.h"

MemoryReport::MemoryReport() : text_(1, L'\0') {
    Append(L"Memory Status");
}

void MemoryReport::Append(std::wstring_view text) {
    text_.insert(text_.end() - 1, text.begin(), text.end());
}

void MemoryReport::Add(std::wstring_view label, std::uint64_t freeBytes, std::uint64_t totalBytes) {
    std::array<wchar_t, 64> freeText{};
    std::array<wchar_t, 64> totalText{};
    FormatSize(freeBytes, freeText, L"%s KB", L"%s MB");
    FormatSize(totalBytes, totalText, L"%s KB", L"%s MB");
    std::array<wchar_t, pathCapacity + 160> line{};
    const OwnedText terminated = CopyText(label);
    const std::size_t length =
        FormatText(line, L"\r\n%s: %s / %s", terminated.get(), freeText.data(), totalText.data());
    Append({line.data(), length});
}
