#pragma once
// The text of "Memory Status".

#include <cstdint>
#include <string_view>
#include <vector>

class MemoryReport {
  public:
    /// Begins with the title alone.
    MemoryReport();

    /// Appends a line: what is free, and what there is in all.
    void Add(std::wstring_view label, std::uint64_t freeBytes, std::uint64_t totalBytes);

    const wchar_t* Text() const { return text_.data(); }

  private:
    void Append(std::wstring_view text);

    std::vector<wchar_t> text_; // terminated
};
