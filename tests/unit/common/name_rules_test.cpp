#include "common/name_rules.h"

#include <string>

#include <gtest/gtest.h>

TEST(NameRules, EachForbiddenCharacterIsFoundAnywhere) {
    for (const wchar_t character : std::wstring(L"\\/:,;*?<>|")) {
        EXPECT_TRUE(HasForbiddenCharacter(std::wstring(1, character)));
        EXPECT_TRUE(HasForbiddenCharacter(std::wstring(L"ab") + character + L"cd"));
    }
}

TEST(NameRules, OtherCharactersAreAllowed) {
    EXPECT_FALSE(HasForbiddenCharacter(L""));
    EXPECT_FALSE(HasForbiddenCharacter(L"Quote \" and (more) + [such] & 'like' %#~.txt"));
}

TEST(NameRules, MessageShowsTheCharacters) {
    EXPECT_EQ(std::wstring(forbiddenNameMessage),
              std::wstring(L"A filename cannot contain these characters:\n\n") + forbiddenCharacters);
}

TEST(NameRules, FileSystemsKeepNoBlanksAndDotsAtTheEnd) {
    EXPECT_EQ(StoredName(L"name"), L"name");
    EXPECT_EQ(StoredName(L"name."), L"name");
    EXPECT_EQ(StoredName(L"a.b . .."), L"a.b");
    EXPECT_EQ(StoredName(L" .name"), L" .name");
    EXPECT_EQ(StoredName(L"\\Temp. \\Folder "), L"\\Temp. \\Folder") << "the last name alone";
    EXPECT_EQ(StoredName(L"\\Temp\\"), L"\\Temp\\");
    for (const wchar_t* place : {L"", L"..", L"\\Temp\\..", L"."})
        EXPECT_EQ(StoredName(place), place);
}
