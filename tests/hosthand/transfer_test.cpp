#include "companions/hosthand/transfer.h"

#include <cerrno>

#include <fcntl.h>

#include "tests/hosthand/hand_test.h"

namespace {

using Texts = std::vector<std::string>;

class TransferTest : public HandTest {
  protected:
    TransferTest() {
        Folder("To");
        File("Outside/kept.txt", "kept");
    }

    /// A tree as people have them.
    void Tree() {
        File("T/bin/run", "#!");
        File("T/.git/objects/ab/cd", "object");
        File("T/secret", "secret");
        Link("T/python", "bin/run");
        Link("T/bin/up", "../python");
        Link("T/out", "../Outside");
        Link("T/nowhere", "/missing/at all");
        Shell("chmod 755 T/bin/run; chmod 444 T/.git/objects/ab/cd; chmod 600 T/secret; chmod 700 T/bin");
        Shell("ln T/secret T/same");
        Shell("touch T/aux.c T/nul.txt 'T/a:b' 'T/what?' 'T/back\\slash' 'T/dot.' 'T/blank ' T/Case T/case");
        Shell("python3 -c \"import os; open(b'T/bad\\xff', 'w'); os.mkdir(b'T/\\xc0'); open(b'T/\\xc0/x', "
              "'w')\"");
        Shell("touch -d '2001-02-03 04:05:06.789 UTC' T/secret T/bin T");
    }
    void Special() {
        Shell("mkfifo T/pipe");
        Shell("python3 -c \"import socket; socket.socket(socket.AF_UNIX).bind('T/bin/socket')\"");
    }
};

TEST_F(TransferTest, ACopyIsWhatItsSourceIs) {
    Tree();
    const std::string before = Manifest("T");
    EXPECT_TRUE(Take(".", "T", "To", false).IsDone());
    EXPECT_EQ(Manifest("To/T"), before);
    EXPECT_EQ(Manifest("T"), before);
    EXPECT_EQ(clerk.questions, Texts{});
    struct stat status {};
    ASSERT_EQ(lstat(At("To/T/secret").c_str(), &status), 0);
    EXPECT_EQ(status.st_mtim.tv_sec, 981173106);
    EXPECT_EQ(status.st_mtim.tv_nsec, 789000000);
    ASSERT_EQ(lstat(At("To/T").c_str(), &status), 0);
    EXPECT_EQ(status.st_mtim.tv_sec, 981173106);
    EXPECT_EQ(clerk.temporaries.size(), static_cast<std::size_t>(clerk.temporariesEnded));
}

TEST_F(TransferTest, ACopyLeavesOutWhatHoldsNothing) {
    Tree();
    const std::string before = Manifest("T");
    Special();
    const Outcome outcome = Take(".", "T", "To", false);
    EXPECT_TRUE(outcome.IsDone());
    EXPECT_EQ(outcome.leftOut, 2u);
    EXPECT_EQ(Manifest("To/T"), before);
}

TEST_F(TransferTest, AMoveBringsAllAlong) {
    Tree();
    Special();
    const std::string before = Manifest("T");
    const Outcome outcome = Take(".", "T", "To", true);
    EXPECT_TRUE(outcome.IsDone());
    EXPECT_EQ(outcome.leftOut, 0u);
    EXPECT_EQ(Manifest("To/T"), before);
    EXPECT_FALSE(Exists("T"));
    EXPECT_EQ(Content("Outside/kept.txt"), "kept");
}

TEST_F(TransferTest, ATakenNameIsAskedAboutWhateverItsCase) {
    File("T/Same", "new");
    File("T/ÄRGER", "new");
    File("To/t/SAME", "old");
    File("To/t/ärger", "old");
    clerk.replaces = false;
    EXPECT_TRUE(Take(".", "T", "To", false).IsDone());
    EXPECT_EQ(clerk.questions.size(), 3u);
    EXPECT_EQ(clerk.questions[0], "folder ");
    EXPECT_EQ(Content("To/t/SAME"), "old");
    clerk.replaces = true;
    EXPECT_TRUE(Take(".", "T", "To", true).IsDone());
    EXPECT_EQ(Content("To/t/SAME"), "new");
    EXPECT_EQ(Content("To/t/ärger"), "new");
    EXPECT_FALSE(Exists("To/T") || Exists("T"));
}

TEST_F(TransferTest, NamesThatDifferInCaseDoNotReplaceEachOther) {
    File("T/makefile", "small");
    File("T/Makefile", "large");
    File("To/T/Makefile", "old");
    EXPECT_TRUE(Take(".", "T", "To", true).IsDone());
    EXPECT_EQ(clerk.questions, (Texts{"folder ", "file Makefile"}));
    EXPECT_EQ(Content("To/T/makefile"), "small");
    EXPECT_EQ(Content("To/T/Makefile"), "large");
}

TEST_F(TransferTest, WhatNobodyCanBeAskedAboutIsLeftOut) {
    File("T/a", "new");
    Shell("mkdir -p To/T");
    for (const char* name : {"bad\\377", "back\\\\slash", "new\\nline"})
        Shell(std::string("printf new >\"T/$(printf '") + name + "')\"; printf old >\"To/T/$(printf '" +
              name + "')\"");
    const Outcome outcome = Take(".", "T", "To", true);
    EXPECT_TRUE(outcome.IsDone());
    EXPECT_EQ(outcome.leftOut, 3u);
    EXPECT_EQ(clerk.questions, Texts{"folder "});
    EXPECT_EQ(Content("To/T/new\nline"), "old");
    EXPECT_EQ(Content("T/new\nline"), "new");
    EXPECT_EQ(Content("To/T/a"), "new");
}

TEST_F(TransferTest, WhatIsSkippedStaysWithItsFolder) {
    File("T/Sub/a", "new");
    File("T/b", "new");
    File("To/T/Sub/a", "old");
    clerk.replaces = false;
    EXPECT_TRUE(Take(".", "T", "To", true).IsDone());
    EXPECT_EQ(Content("T/Sub/a"), "new");
    EXPECT_EQ(Content("To/T/Sub/a"), "old");
    EXPECT_FALSE(Exists("T/b"));
}

TEST_F(TransferTest, ALinkInTheTargetIsReplacedAndNotFollowed) {
    File("T/a", "new");
    File("T/Sub/b", "new");
    Folder("To/T");
    Link("To/T/a", "../../Outside/kept.txt");
    Link("To/T/Sub", "../../Outside");
    const Outcome outcome = Take(".", "T", "To", false);
    EXPECT_EQ(outcome.code, hand::ResultCode::Failed);
    EXPECT_EQ(Manifest("Outside").find("new"), std::string::npos);
    EXPECT_FALSE(Exists("Outside/b"));
    EXPECT_EQ(Content("Outside/kept.txt"), "kept");
}

TEST_F(TransferTest, AFileIsReplacedByItselfWithoutLoss) {
    File("a", "only");
    EXPECT_TRUE(Take(".", "a", ".", true, false).IsDone());
    EXPECT_EQ(Content("a"), "only");
    Shell("ln a To/a");
    EXPECT_TRUE(Take(".", "a", "To", true, false).IsDone());
    EXPECT_EQ(Content("To/a"), "only");
    EXPECT_FALSE(Exists("a"));
}

TEST_F(TransferTest, AFolderIsNotTakenIntoItself) {
    File("T/a");
    File("T/Sub/b");
    EXPECT_FALSE(Take(".", "T", "T/Sub", false).IsDone());
    EXPECT_FALSE(Exists("T/Sub/T/Sub/T"));
    EXPECT_FALSE(Take(".", "T", ".", true).IsDone());
    EXPECT_TRUE(Exists("T/Sub/b"));
}

TEST_F(TransferTest, AStoppedCopyLeavesNothing) {
    File("T/large", std::string(3'000'000, 'x'));
    int asked = 0;
    clerk.keepGoing = [&] { return ++asked < 3; };
    EXPECT_EQ(Take(".", "T", "To", false).code, hand::ResultCode::Stopped);
    EXPECT_FALSE(Exists("To/T/large"));
    Shell("test -z \"$(find . -name '~job*')\"");
}

TEST_F(TransferTest, AFileMayBeFinishedAfterCancel) {
    File("T/large", std::string(3'000'000, 'x'));
    int asked = 0;
    clerk.keepGoing = [&] { return ++asked < 3; };
    clerk.mayFinishFile = true;
    EXPECT_EQ(Take(".", "T", "To", false).code, hand::ResultCode::Stopped);
    EXPECT_EQ(Content("To/T/large").size(), 3'000'000u);
}

TEST_F(TransferTest, SomebodysFileOfTheJobsNameIsNotTouched) {
    File("To/~job000.tmp", "mine");
    File("a", "new");
    EXPECT_TRUE(Take(".", "a", "To", false, false).IsDone());
    EXPECT_EQ(Content("To/~job000.tmp"), "mine");
    EXPECT_EQ(clerk.temporaries, Texts{"~job001.tmp"});
}

/// Moves between this folder and another volume, when there is one.
class AcrossTest : public TransferTest {
  protected:
    void SetUp() override {
        struct stat here {
        }, there{};
        stat(At(".").c_str(), &here);
        if (stat("/dev/shm", &there) != 0 || here.st_dev == there.st_dev)
            GTEST_SKIP() << "there is no other volume";
        std::string place = "/dev/shm/hand-test-XXXXXX";
        other_ = mkdtemp(place.data());
        Link("Card", other_);
    }
    ~AcrossTest() override {
        if (!other_.empty())
            Shell("rm -rf '" + other_ + "'");
    }

  private:
    std::string other_;
};

TEST_F(AcrossTest, AMoveBringsAllAlong) {
    Tree();
    Special();
    const std::string before = Manifest("T");
    const Outcome outcome = Take(".", "T", "Card", true);
    EXPECT_TRUE(outcome.IsDone()) << outcome.error;
    EXPECT_EQ(outcome.leftOut, 0u);
    EXPECT_FALSE(Exists("T"));
    EXPECT_EQ(Manifest("Card/T"), before);
}

TEST_F(AcrossTest, ASourceThatStaysIsSaid) {
    Folder("Closed");
    Shell("chmod 555 Closed");
    if (access(At("Closed").c_str(), W_OK) == 0)
        GTEST_SKIP() << "the superuser may remove everything";
    File("T/a", "a");
    Shell("chmod 555 T");
    EXPECT_EQ(Take("T", "a", "Card", true, false).code, hand::ResultCode::SourceStays);
    EXPECT_FALSE(Exists("Card/a"));
    EXPECT_TRUE(Exists("T/a"));
}

} // namespace
