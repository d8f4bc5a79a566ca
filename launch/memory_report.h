#pragma once
// The text of "Memory Status".

#include <array>
#include <cstdint>
#include <string_view>

class MemoryReport {
  public:
    /// Begins with the title alone.
    MemoryReport();

    /// Appends a line: what is free, and what there is in all. A line that does not fit is left out whole.
    void Add(std::wstring_view label, std::uint64_t freeBytes, std::uint64_t totalBytes);

    const wchar_t* Text() const { return text_.data(); }

  private:
    std::array<wchar_t, 1024> text_{};
    std::size_t length_ = 0;
};
