// The hand itself, as the program starts it, at a disk that does not answer.

#include <chrono>
#include <optional>
#include <thread>

#include <fcntl.h>

#include "tests/hosthand/hand_test.h"
#include "tests/hosthand/talk.h"

namespace {

using hand::Kind;
using hand::MessageWriter;
using hand::ResultCode;
using Clock = std::chrono::steady_clock;
using namespace std::chrono_literals;

class HangingTest : public HandTest {
  protected:
    void SetUp() override {
        Folder("Prefix/drive_c/windows");
        Folder("Device/From");
        Folder("Device/To");
        Shell("cp \"$(dirname \"$(readlink /proc/$PPID/exe)\")\"/hosthand Prefix/drive_c/windows/\n"
              "cd Device\nLD_PRELOAD=\"$(dirname \"$(readlink /proc/$PPID/exe)\")/libslow_disk.so\" "
              "../Prefix/drive_c/windows/hosthand abc >/dev/null 2>&1 </dev/null &\n"
              "echo $! >../hand");
        const std::string place = At("Prefix/drive_c/windows/hand.abc");
        Descriptor ask;
        for (int tries = 0; !ask && tries < 2000; ++tries) {
            ask = Descriptor(open((place + "/ask").c_str(), O_WRONLY | O_CLOEXEC));
            if (!ask)
                std::this_thread::sleep_for(5ms);
        }
        ASSERT_TRUE(ask);
        talk.emplace(std::move(ask), Descriptor(open((place + "/tell").c_str(), O_RDONLY | O_CLOEXEC)));
    }

    /// Cancels the job under way a moment later. How long it goes on then.
    Clock::duration Cancel(Outcome& outcome) {
        std::this_thread::sleep_for(300ms);
        const Clock::time_point cancelled = Clock::now();
        talk->Say(MessageWriter(Kind::Cancel));
        outcome = talk->HearResult();
        return Clock::now() - cancelled;
    }
    void ExpectHandGone() const {
        Shell("for i in $(seq 200); do test -e /proc/$(cat hand) || exit 0; sleep 0.05; done; exit 1");
    }

    std::optional<Talk> talk;
};

TEST_F(HangingTest, ACopyIsGivenUpAndLeavesNothing) {
    File("Device/From/T/hangs.bin", std::string(100000, 'x'));
    Outcome outcome;
    talk->Say(Transferring("From", "T", "To", false));
    const Clock::duration took = Cancel(outcome);
    EXPECT_EQ(outcome.code, ResultCode::Stopped);
    EXPECT_GE(took, 1800ms);
    EXPECT_LT(took, 8s);
    Shell("test -z \"$(find Device/To -type f)\"");
    EXPECT_EQ(Content("Device/From/T/hangs.bin").size(), 100000u);
    ExpectHandGone();
}

TEST_F(HangingTest, ADeletionIsGivenUp) {
    File("Device/From/T/hangs.bin");
    Outcome outcome;
    talk->Say(Removal("From", "T", true));
    EXPECT_LT(Cancel(outcome), 8s);
    EXPECT_EQ(outcome.code, ResultCode::Stopped);
    EXPECT_TRUE(Exists("Device/From/T/hangs.bin"));
    ExpectHandGone();
}

TEST_F(HangingTest, AFolderToHoldIsGivenUp) {
    Folder("Device/lost in its name");
    Outcome outcome;
    talk->Say(std::move(MessageWriter(Kind::Hold).Text("lost in its name")));
    EXPECT_LT(Cancel(outcome), 8s);
    EXPECT_EQ(outcome.code, ResultCode::Stopped);
    ExpectHandGone();
}

TEST_F(HangingTest, AFileThatTakesNoMoreThanTwoSecondsIsFinished) {
    File("Device/From/T/slow.bin", std::string(100000, 'x'));
    Outcome outcome;
    talk->Say(Transferring("From", "T", "To", false));
    EXPECT_LT(Cancel(outcome), 2s);
    EXPECT_EQ(Content("Device/To/T/slow.bin"), Content("Device/From/T/slow.bin"));
    talk->End();
    ExpectHandGone();
}

} // namespace
