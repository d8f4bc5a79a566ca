#include "platform/desktop/shell_link.h"

#include <cstdint>
#include <random>
#include <string>

#include <gtest/gtest.h>

namespace {

/// A shell link's file, put together part by part.
class LinkFile {
  public:
    explicit LinkFile(std::uint32_t flags) {
        Number(0x4C, 4);
        bytes_ += std::string("\x01\x14\x02\0\0\0\0\0\xC0\0\0\0\0\0\0\x46", 16);
        Number(flags, 4);
        bytes_.resize(0x4C, '\0');
    }

    LinkFile& Number(std::uint32_t number, int size) {
        for (int byte = 0; byte < size; ++byte)
            bytes_ += static_cast<char>(number >> 8 * byte);
        return *this;
    }

    /// The part that tells the target's place: a base, and what follows it.
    LinkFile& Location(const std::string& base, const std::string& suffix) {
        const auto suffixAt = static_cast<std::uint32_t>(0x1C + base.size() + 1);
        Number(suffixAt + static_cast<std::uint32_t>(suffix.size()) + 1, 4).Number(0x1C, 4).Number(1, 4);
        Number(0, 4).Number(0x1C, 4).Number(0, 4).Number(suffixAt, 4);
        bytes_ += base + '\0' + suffix + '\0';
        return *this;
    }

    LinkFile& WideLocation(const std::u16string& base, const std::u16string& suffix) {
        const auto baseSize = static_cast<std::uint32_t>(2 * (base.size() + 1));
        const auto suffixSize = static_cast<std::uint32_t>(2 * (suffix.size() + 1));
        Number(0x24 + baseSize + suffixSize, 4).Number(0x24, 4).Number(1, 4);
        Number(0, 4).Number(0, 4).Number(0, 4).Number(0, 4).Number(0x24, 4).Number(0x24 + baseSize, 4);
        return Wide(base + u'\0' + suffix + u'\0');
    }

    /// A counted text of the kind that follows the location.
    LinkFile& Counted(const std::u16string& text) {
        return Number(static_cast<std::uint32_t>(text.size()), 2).Wide(text);
    }

    LinkFile& Counted(const std::string& text) {
        Number(static_cast<std::uint32_t>(text.size()), 2);
        bytes_ += text;
        return *this;
    }

    LinkFile& Wide(const std::u16string& text) {
        for (char16_t character : text)
            Number(character, 2);
        return *this;
    }

    const std::string& Bytes() const { return bytes_; }

  private:
    std::string bytes_;
};

constexpr std::uint32_t idList = 0x1, location = 0x2, name = 0x4, folder = 0x10, arguments = 0x20,
                        unicode = 0x80;

void ExpectLink(const std::string& bytes, const std::wstring& path, const std::wstring& words) {
    const std::optional<ShellLink> link = ReadShellLink(bytes);
    ASSERT_TRUE(link);
    EXPECT_EQ(std::wstring(link->path.begin(), link->path.end()), path);
    EXPECT_EQ(std::wstring(link->arguments.begin(), link->arguments.end()), words);
}

/// With everything in it that a reader steps over.
LinkFile FullLink() {
    LinkFile file(idList | location | name | folder | arguments | unicode);
    file.Number(6, 2).Wide(u"abc");
    file.Location("E:\\Windows\\", "a.exe");
    file.Counted(u"A name").Counted(u"\\Folder").Counted(u"-x \"y\"");
    return file;
}

TEST(ShellLink, LeadsToItsPath) {
    ExpectLink(LinkFile(location).Location("E:\\a.txt", "").Bytes(), L"E:\\a.txt", L"");
    ExpectLink(LinkFile(location).Location("E:\\Windows\\", "a.exe").Bytes(), L"E:\\Windows\\a.exe", L"");
}

TEST(ShellLink, PrefersItsWidePath) {
    ExpectLink(LinkFile(location).WideLocation(u"E:\\\u65E5", u"\\\u672C.txt").Bytes(),
               L"E:\\\u65E5\\\u672C.txt", L"");
}

TEST(ShellLink, HasItsArgumentsBehindItsOtherTexts) {
    ExpectLink(FullLink().Bytes(), L"E:\\Windows\\a.exe", L"-x \"y\"");
    LinkFile narrow(location | name | arguments);
    narrow.Location("E:\\a.exe", "").Counted(std::string("A name")).Counted(std::string("-x"));
    ExpectLink(narrow.Bytes(), L"E:\\a.exe", L"-x");
}

TEST(ShellLink, IsNoneWithoutAPath) {
    EXPECT_FALSE(ReadShellLink(LinkFile(0).Bytes()));
    EXPECT_FALSE(ReadShellLink(LinkFile(location).Location("", "").Bytes()));
    EXPECT_FALSE(ReadShellLink(LinkFile(location).Number(0x1C, 4).Number(0x1C, 4).Number(2, 4).Bytes()))
        << "leads to a network alone";
    EXPECT_FALSE(ReadShellLink(LinkFile(arguments | unicode).Counted(u"-x").Bytes()));
}

TEST(ShellLink, IsToldByItsHeader) {
    const std::string whole = FullLink().Bytes();
    for (std::size_t byte = 0; byte < 20; ++byte) {
        std::string spoilt = whole;
        spoilt[byte] = static_cast<char>(spoilt[byte] ^ 0x55);
        EXPECT_FALSE(ReadShellLink(spoilt)) << byte;
    }
    EXPECT_FALSE(ReadShellLink(std::string()));
    EXPECT_FALSE(ReadShellLink(std::string("21#\\windows\\solitare.exe")));
}

TEST(ShellLink, CanEndAnywhere) {
    const std::string whole = FullLink().Bytes();
    for (std::size_t size = 0; size < whole.size(); ++size) {
        const std::vector<char> cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size));
        const std::optional<ShellLink> link = ReadShellLink(cut);
        EXPECT_LE(link ? link->path.size() : 0, whole.size());
    }
}

TEST(ShellLink, BearsAnyBytes) {
    std::mt19937 random(7);
    const std::string whole = FullLink().Bytes();
    for (int round = 0; round < 20000; ++round) {
        std::vector<char> spoilt(whole.begin(), whole.end());
        for (int change = 0; change < 4; ++change)
            spoilt[20 + random() % (spoilt.size() - 20)] =
                static_cast<char>(random() % 2 ? 0xFF : random() % 256);
        const std::optional<ShellLink> link = ReadShellLink(spoilt);
        if (link) {
            EXPECT_LE(link->path.size(), 2 * whole.size());
            EXPECT_LE(link->arguments.size(), whole.size());
        }
    }
}

} // namespace
