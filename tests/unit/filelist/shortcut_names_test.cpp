#include "filelist/shortcut_names.h"

#include <string>

#include <gtest/gtest.h>

namespace {

constexpr ShortcutNaming plain{.mention = true, .keepExtension = true};
constexpr ShortcutNaming unmentioned{.mention = false, .keepExtension = true};
constexpr ShortcutNaming stemOnly{.mention = true, .keepExtension = false};

std::wstring ShortcutFor(std::wstring_view folder, std::wstring_view name, ShortcutNaming naming,
                         int number) {
    Path path;
    return AssignShortcutPath(path, folder, ShortcutBase(name, naming), naming, number)
               ? std::wstring(path.View())
               : L"(too long)";
}

std::wstring TextFor(std::wstring_view folder, std::wstring_view name) {
    Path target;
    EXPECT_TRUE(target.AssignChild(folder, name));
    return QuotedTarget(target).data();
}

} // namespace

TEST(ShortcutNames, MentionLeads) {
    EXPECT_EQ(ShortcutFor(L"\\Temp", L"x", plain, 1), L"\\Temp\\Shortcut to x.lnk");
    EXPECT_EQ(ShortcutFor(L"\\Temp", L"x", plain, 2), L"\\Temp\\Shortcut to x (2).lnk");
}

TEST(ShortcutNames, MentionCanBeLeftOut) {
    EXPECT_EQ(ShortcutFor(L"\\Temp", L"x", unmentioned, 1), L"\\Temp\\x.lnk");
    EXPECT_EQ(ShortcutFor(L"\\Temp", L"x", unmentioned, 2), L"\\Temp\\x (2).lnk");
}

TEST(ShortcutNames, ExtensionOfTheTargetStaysOrGoes) {
    EXPECT_EQ(ShortcutFor(L"\\Temp", L"x.txt", plain, 1), L"\\Temp\\Shortcut to x.txt.lnk");
    EXPECT_EQ(ShortcutFor(L"\\Temp", L"x.txt", stemOnly, 1), L"\\Temp\\Shortcut to x.lnk");
    EXPECT_EQ(ShortcutFor(L"\\Temp", L"x", stemOnly, 1), L"\\Temp\\Shortcut to x.lnk");
    EXPECT_EQ(ShortcutFor(L"\\Temp", L"a.tar.gz", stemOnly, 1), L"\\Temp\\Shortcut to a.tar.lnk");
}

TEST(ShortcutNames, RootAsDestination) {
    EXPECT_EQ(ShortcutFor(L"", L"x", plain, 1), L"\\Shortcut to x.lnk");
}

TEST(ShortcutNames, LastNumberIs511) {
    EXPECT_EQ(ShortcutFor(L"", L"x", plain, lastShortcutNumber), L"\\Shortcut to x (511).lnk");
}

TEST(ShortcutNames, PathAtTheLimitFitsAndOneMoreDoesNot) {
    const std::wstring base(259 - std::wstring_view(L"\\.lnk").size(), L'x');
    EXPECT_EQ(ShortcutFor(L"", base, unmentioned, 1).size(), 259u);
    EXPECT_EQ(ShortcutFor(L"", base + L"x", unmentioned, 1), L"(too long)");
    EXPECT_EQ(ShortcutFor(L"", base, unmentioned, 2), L"(too long)");
}

TEST(QuotedTarget, IsThePathInQuotationMarks) {
    EXPECT_EQ(TextFor(L"\\My Documents", L"a b.txt"), L"\"\\My Documents\\a b.txt\"");
}

TEST(QuotedTarget, EntryOfTheRootHasOneBackslash) {
    EXPECT_EQ(TextFor(L"", L"Temp"), L"\"\\Temp\"");
}

TEST(QuotedTarget, LongestPathKeepsBothMarks) {
    const std::wstring text = TextFor(L"", std::wstring(258, L'x'));
    EXPECT_EQ(text.size(), 261u);
    EXPECT_EQ(text.back(), L'"');
}
