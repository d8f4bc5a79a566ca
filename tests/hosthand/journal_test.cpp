// What is left by hands that end suddenly, and what the next one makes of it.

#include "companions/hosthand/journal.h"

#include <functional>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include "tests/hosthand/hand_test.h"

namespace {

class JournalTest : public HandTest {
  protected:
    JournalTest() {
        Folder("Own");
        Folder("To");
    }

    /// Has another process do this with a journal and end suddenly.
    void EndSuddenly(const std::function<void(Journal&, int folder)>& work) {
        const pid_t child = fork();
        if (child == 0) {
            Journal journal(At("Own"), "abc");
            const Descriptor folder = Open("To");
            work(journal, folder.Get());
            _exit(0);
        }
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        ASSERT_EQ(status, 0);
    }
    static void Make(int folder, const char* name, const std::string& content = {}) {
        const Descriptor file(openat(folder, name, O_WRONLY | O_CREAT | O_CLOEXEC, 0600));
        ASSERT_EQ(write(file.Get(), content.data(), content.size()), static_cast<ssize_t>(content.size()));
    }
    void ExpectOwnEmpty() const { Shell("test -z \"$(ls -A Own)\""); }
};

TEST_F(JournalTest, WhatWasMadeAndNotedGoes) {
    EndSuddenly([](Journal& journal, int folder) {
        journal.Announce(folder, "~job000.tmp");
        Make(folder, "~job000.tmp");
        journal.Note(folder, "~job000.tmp");
        Make(folder, "~job000.tmp", "half of it");
    });
    SweepJournals(At("Own"));
    EXPECT_FALSE(Exists("To/~job000.tmp"));
    ExpectOwnEmpty();
}

TEST_F(JournalTest, WhatWasMadeAndNotNotedYetGoes) {
    EndSuddenly([](Journal& journal, int folder) {
        journal.Announce(folder, "~job000.tmp");
        Make(folder, "~job000.tmp");
    });
    SweepJournals(At("Own"));
    EXPECT_FALSE(Exists("To/~job000.tmp"));
    EndSuddenly([](Journal& journal, int folder) {
        journal.Announce(folder, "~job000.tmp");
        ASSERT_EQ(symlinkat("nowhere", folder, "~job000.tmp"), 0);
    });
    SweepJournals(At("Own"));
    EXPECT_FALSE(Exists("To/~job000.tmp"));
    ExpectOwnEmpty();
}

TEST_F(JournalTest, WhatIsSomebodyElsesStays) {
    EndSuddenly([](Journal& journal, int folder) { journal.Announce(folder, "~job000.tmp"); });
    File("To/~job000.tmp", "mine");
    SweepJournals(At("Own"));
    EXPECT_EQ(Content("To/~job000.tmp"), "mine");

    EndSuddenly([](Journal& journal, int folder) {
        journal.Announce(folder, "~job001.tmp");
        Make(folder, "~job001.tmp");
        journal.Note(folder, "~job001.tmp");
    });
    Shell("rm To/~job001.tmp; touch To/other To/~job001.tmp; rm To/other");
    SweepJournals(At("Own"));
    EXPECT_TRUE(Exists("To/~job001.tmp"));
    ExpectOwnEmpty();
}

TEST_F(JournalTest, WhatHasItsLastNameStays) {
    EndSuddenly([](Journal& journal, int folder) {
        journal.Announce(folder, "~job000.tmp");
        Make(folder, "~job000.tmp");
        journal.Note(folder, "~job000.tmp");
        ASSERT_EQ(renameat(folder, "~job000.tmp", folder, "copy"), 0);
    });
    SweepJournals(At("Own"));
    EXPECT_TRUE(Exists("To/copy"));
    ExpectOwnEmpty();
}

TEST_F(JournalTest, AMeetingPlaceThatNobodyCameToGoes) {
    Folder("Own/hand.abc.new");
    Folder("Own/hand.def");
    Shell("mkfifo Own/hand.def/ask");
    Folder("Own/hand.123");
    const Descriptor held = OpenOwned(At("Own/hand.123"), O_RDONLY | O_DIRECTORY);
    SweepJournals(At("Own"));
    Shell("test \"$(ls Own)\" = hand.123");
}

/// A link that replaces another is under a name of the job's for a moment, and noted.
TEST_F(JournalTest, AllThatIsMadeForATimeIsNoted) {
    File("From/T/file", "new");
    Link("From/T/link", "new");
    File("To/T/file", "old");
    Link("To/T/link", "old");
    Journal journal(At("Own"), "abc");
    clerk.journal = &journal;
    EXPECT_TRUE(Take("From", "T", "To", false).IsDone());
    EXPECT_EQ(clerk.temporaries.size(), 2u);
    EXPECT_EQ(clerk.temporariesEnded, 2);
    Shell("test \"$(readlink To/T/link)\" = new; test -z \"$(cat Own/hand.abc.notes)\"");
}

} // namespace
