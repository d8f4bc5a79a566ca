#include "companions/hosthand/removal.h"

#include <cerrno>

#include "tests/hosthand/hand_test.h"

namespace {

class RemovalTest : public HandTest {};

TEST_F(RemovalTest, AFolderGoesWithAllThatIsInIt) {
    File("Outside/kept.txt");
    File("T/a.txt");
    File("T/Sub/Deep/b.txt");
    Link("T/Sub/out", "../../Outside");
    Link("T/nowhere", "missing");
    Link("T/Sub/loop", "..");
    Shell("mkfifo T/pipe && chmod 444 T/a.txt && ln T/a.txt T/Sub/same");
    Shell("python3 -c \"import socket; socket.socket(socket.AF_UNIX).bind('T/socket')\"");
    Shell("touch T/aux.c T/nul.txt 'T/a:b' 'T/what?' 'T/back\\slash' 'T/dot.' 'T/blank '");
    Shell("touch \"$(printf 'T/new\\nline')\"");
    Shell("python3 -c \"import os; open(b'T/bad\\xff\\xfe', 'w'); os.mkdir(b'T/\\xc0'); open(b'T/\\xc0/x', "
          "'w')\"");
    EXPECT_TRUE(Delete(".", "T").IsDone());
    EXPECT_FALSE(Exists("T"));
    EXPECT_EQ(Content("Outside/kept.txt"), "text");
    EXPECT_GE(clerk.units, 18);
}

TEST_F(RemovalTest, WhatWasChosenAsAFileIsNotEmptied) {
    File("Was a file/kept.txt");
    EXPECT_EQ(Delete(".", "Was a file", false).error, EISDIR);
    EXPECT_TRUE(Exists("Was a file/kept.txt"));
    File("was a folder");
    EXPECT_EQ(Delete(".", "was a folder").error, ENOTDIR);
    EXPECT_TRUE(Exists("was a folder"));
}

TEST_F(RemovalTest, ALinkThatWasChosenGoesAlone) {
    File("Outside/kept.txt");
    Link("folder", "Outside");
    Link("file", "Outside/kept.txt");
    EXPECT_TRUE(Delete(".", "folder").IsDone());
    EXPECT_TRUE(Delete(".", "file", false).IsDone());
    EXPECT_FALSE(Exists("folder") || Exists("file"));
    EXPECT_TRUE(Exists("Outside/kept.txt"));
}

TEST_F(RemovalTest, ACardIsEmptiedAndWhatTookItsPlaceIsNot) {
    File("Disk/a");
    File("Other/kept");
    Link("Card", "Disk");
    cards = Cards(Open(".").Get());
    EXPECT_EQ(Delete(".", "Card").error, EACCES);
    EXPECT_TRUE(Exists("Card") && !Exists("Disk/a"));
    Shell("ln -s Other new && mv -T new Card");
    EXPECT_TRUE(Delete(".", "Card").IsDone());
    EXPECT_TRUE(Exists("Other/kept"));
}

TEST_F(RemovalTest, WhatMayNotBeChangedStaysAndIsSaid) {
    File("T/a.txt");
    Shell("chmod 555 T");
    if (access(At("T").c_str(), W_OK) == 0)
        GTEST_SKIP() << "the superuser may change everything";
    EXPECT_EQ(Delete("T", "a.txt", false).error, EACCES);
    EXPECT_EQ(Delete(".", "T").error, EACCES);
    EXPECT_TRUE(Exists("T/a.txt"));
}

TEST_F(RemovalTest, StopsBetweenEntries) {
    for (int i = 0; i < 20; ++i)
        File("T/" + std::to_string(i));
    clerk.keepGoing = [this] { return clerk.units < 5; };
    EXPECT_EQ(Delete(".", "T").code, hand::ResultCode::Stopped);
    EXPECT_EQ(clerk.units, 5);
}

TEST_F(RemovalTest, AFileThatIsOpenElsewhereIsAskedAbout) {
    File("T/a.txt");
    clerk.openElsewhere = StatusOf(Open("T").Get(), "a.txt")->st_ino;
    EXPECT_EQ(Delete(".", "T").error, EBUSY);
    EXPECT_EQ(clerk.questions, std::vector<std::string>{"source a.txt"});
    EXPECT_TRUE(Exists("T/a.txt"));
}

TEST_F(RemovalTest, FoldersMayBeDeeperThanPathsAreLong) {
    Shell("python3 -c \"\nimport os\nos.mkdir('T'); os.chdir('T')\nfor i in range(900):\n "
          "os.mkdir('0123456789'); os.chdir('0123456789')\n\"");
    EXPECT_TRUE(Delete(".", "T").IsDone());
    EXPECT_FALSE(Exists("T"));
    EXPECT_EQ(clerk.units, 901);
}

} // namespace
