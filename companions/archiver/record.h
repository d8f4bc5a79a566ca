#pragma once
// Records of numbers in the order of bytes that archives have: the lowest first.

#include <cstdint>
#include <string>
#include <string_view>

namespace archiver {

class Record {
  public:
    Record& Byte(std::uint32_t value) { return Number(value, 1); }
    Record& Word(std::uint32_t value) { return Number(value, 2); }
    Record& Long(std::uint32_t value) { return Number(value, 4); }
    Record& Huge(std::uint64_t value) { return Number(value, 8); }
    Record& Text(std::string_view bytes) {
        bytes_ += bytes;
        return *this;
    }
    const std::string& Bytes() const { return bytes_; }
    std::uint32_t Size() const { return static_cast<std::uint32_t>(bytes_.size()); }

  private:
    Record& Number(std::uint64_t value, int size) {
        for (int i = 0; i < size; ++i)
            bytes_ += static_cast<char>(value >> 8 * i & 0xFF);
        return *this;
    }

    std::string bytes_;
};

} // namespace archiver
