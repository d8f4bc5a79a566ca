#include "platform/desktop/shell_link.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

#include <windows.h>

namespace {

constexpr std::uint32_t hasIdList = 0x1, hasLocation = 0x2, hasName = 0x4, hasRelativePath = 0x8,
                        hasFolder = 0x10, hasArguments = 0x20, isUnicode = 0x80;
constexpr std::uint32_t hasLocalPath = 0x1;

/// Numbers and texts at offsets into bytes; what lies outside reads as zero or empty.
class Bytes {
  public:
    explicit Bytes(std::span<const char> bytes) : bytes_(bytes) {}

    std::size_t Size() const { return bytes_.size(); }

    template <class Number>
    Number At(std::size_t offset) const {
        Number value = 0;
        if (offset <= bytes_.size() && bytes_.size() - offset >= sizeof(value))
            std::memcpy(&value, bytes_.data() + offset, sizeof(value));
        return value;
    }

    Bytes Part(std::size_t offset, std::size_t length) const {
        offset = std::min(offset, bytes_.size());
        return Bytes(bytes_.subspan(offset, std::min(length, bytes_.size() - offset)));
    }

    Bytes From(std::size_t offset) const { return Part(offset, bytes_.size()); }

    /// As a text of the given kind, up to a zero.
    std::vector<wchar_t> Text(bool unicode) const {
        std::vector<wchar_t> text;
        if (unicode) {
            for (std::size_t i = 0; i + 1 < bytes_.size() && At<wchar_t>(i) != L'\0'; i += sizeof(wchar_t))
                text.push_back(At<wchar_t>(i));
            return text;
        }
        const int length = static_cast<int>(std::find(bytes_.begin(), bytes_.end(), '\0') - bytes_.begin());
        text.resize(static_cast<std::size_t>(
            std::max(0, MultiByteToWideChar(CP_ACP, 0, bytes_.data(), length, nullptr, 0))));
        MultiByteToWideChar(CP_ACP, 0, bytes_.data(), length, text.data(), static_cast<int>(text.size()));
        return text;
    }

  private:
    std::span<const char> bytes_;
};

/// The path in the part that tells the target's place: a base and what follows it, in either kind of text.
std::vector<wchar_t> ReadLocation(const Bytes& location) {
    if ((location.At<std::uint32_t>(8) & hasLocalPath) == 0)
        return {};
    const bool unicode = location.At<std::uint32_t>(4) >= 0x24;
    const auto text = [&](std::size_t field) {
        const std::uint32_t offset = location.At<std::uint32_t>(field);
        return offset == 0 ? std::vector<wchar_t>() : location.From(offset).Text(unicode);
    };
    std::vector<wchar_t> path = text(unicode ? 0x1C : 0x10);
    const std::vector<wchar_t> suffix = text(unicode ? 0x20 : 0x18);
    path.insert(path.end(), suffix.begin(), suffix.end());
    return path;
}

} // namespace

std::optional<ShellLink> ReadShellLink(std::span<const char> bytes) {
    const Bytes file(bytes);
    constexpr std::size_t headerSize = 0x4C;
    constexpr char shellLinkClass[] = "\x01\x14\x02\0\0\0\0\0\xC0\0\0\0\0\0\0\x46";
    if (file.Size() < headerSize || file.At<std::uint32_t>(0) != headerSize ||
        std::memcmp(bytes.data() + 4, shellLinkClass, 16) != 0)
        return {};

    const std::uint32_t flags = file.At<std::uint32_t>(0x14);
    std::size_t next = headerSize;
    if ((flags & hasIdList) != 0)
        next += 2 + file.At<std::uint16_t>(next);
    ShellLink link;
    if ((flags & hasLocation) != 0) {
        const std::uint32_t size = file.At<std::uint32_t>(next);
        link.path = ReadLocation(file.Part(next, size));
        next += size;
    }
    if (link.path.empty())
        return {};

    for (const std::uint32_t part : {hasName, hasRelativePath, hasFolder, hasArguments}) {
        if ((flags & part) == 0)
            continue;
        const bool unicode = (flags & isUnicode) != 0;
        const std::size_t size = file.At<std::uint16_t>(next) * (unicode ? sizeof(wchar_t) : 1);
        next += 2;
        if (part == hasArguments)
            link.arguments = file.Part(next, size).Text(unicode);
        next += size;
    }
    return link;
}
