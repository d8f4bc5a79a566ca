#include "fileops/properties_rules.h"

#include <array>
#include <string>

#include <gtest/gtest.h>

#include "common/text_format.h"

namespace {

std::wstring SizeText(DWORD size) {
    LoadDecimalSeparator();
    std::array<wchar_t, 128> text{};
    FormatPropertySize(size, text);
    return text.data();
}

} // namespace

TEST(PropertiesRules, TheExtensionTellsShortcutsFromFiles) {
    EXPECT_EQ(ObjectKindOf(ItemKind::File, L"a.lnk"), ObjectKind::Shortcut);
    EXPECT_EQ(ObjectKindOf(ItemKind::File, L"a.txt.LNK"), ObjectKind::Shortcut);
    EXPECT_EQ(ObjectKindOf(ItemKind::File, L"a.lnk.txt"), ObjectKind::File);
    EXPECT_EQ(ObjectKindOf(ItemKind::File, L"lnk"), ObjectKind::File);
    EXPECT_EQ(ObjectKindOf(ItemKind::Folder, L"a.lnk"), ObjectKind::Folder);
}

TEST(PropertiesRules, ClicksSetAndTurnOver) {
    EXPECT_EQ(AttributesAfterClick(0x20, 0x01, true), 0x21u);
    EXPECT_EQ(AttributesAfterClick(0x21, 0x01, true), 0x21u);
    EXPECT_EQ(AttributesAfterClick(0x21, 0x01, false), 0x20u);
    EXPECT_EQ(AttributesAfterClick(0x20, 0x01, false), 0x21u);
}

TEST(PropertiesRules, SizesTurnToMegabytesAtAThousandKilobytes) {
    EXPECT_EQ(SizeText(0), L"0.00 KB (0 bytes)");
    EXPECT_EQ(SizeText(1023999), L"1,000.00 KB (1,023,999 bytes)");
    EXPECT_EQ(SizeText(1024000), L"0.98 MB (1,024,000 bytes)");
    EXPECT_EQ(SizeText(0xFFFFFFFE), L"4,096.00 MB (4,294,967,294 bytes)");
    EXPECT_EQ(SizeText(0xFFFFFFFF), L"");
}

TEST(PropertiesRules, TheTargetsFileEndsAtItsQuoteOrTheFirstBlank) {
    EXPECT_EQ(FileOfTarget(L"\"\\My Documents\\a b.txt\" -x"), L"\\My Documents\\a b.txt");
    EXPECT_EQ(FileOfTarget(L"\\Windows\\a.exe -x"), L"\\Windows\\a.exe");
    EXPECT_EQ(FileOfTarget(L"\\Windows"), L"\\Windows");
    EXPECT_EQ(FileOfTarget(L"\"\\Windows\\a.exe"), L"\\Windows\\a.ex");
    EXPECT_EQ(FileOfTarget(L"\""), L"");
    EXPECT_EQ(FileOfTarget(L""), L"");
}
