// Somebody who swaps entries for links, again and again, while a job is at them: what the links lead to is
// never changed.

#include <atomic>
#include <chrono>
#include <functional>
#include <thread>

#include <fcntl.h>

#include "companions/hosthand/removal.h"
#include "tests/hosthand/hand_test.h"

namespace {

class RacingTest : public HandTest {
  protected:
    static constexpr int rounds = 30;

    /// Files and folders that the job goes through, and outside of them the same once more.
    void Fill() {
        for (const char* top : {"T", "Outside"})
            for (int folder = 0; folder < 4; ++folder)
                for (int file = 0; file < 8; ++file)
                    File(std::string(top) + "/Sub" + std::to_string(folder) + "/f" + std::to_string(file),
                         top);
    }

    /// Does the job while somebody exchanges `name` and a link to `target`, both in the open folder.
    void RunAgainst(const std::string& name, const std::string& target, const std::function<void()>& job) {
        Link("swap", target);
        const Descriptor home = Open(".");
        std::atomic<bool> isOver = false;
        std::thread swapper([&] {
            while (!isOver) {
                renameat2(home.Get(), name.c_str(), home.Get(), "swap", RENAME_EXCHANGE);
                ++swaps_;
            }
        });
        job();
        isOver = true;
        swapper.join();
    }

    void ExpectOutsideAsItWas(const std::string& before) { ASSERT_EQ(Manifest("Outside"), before); }

    /// Has one kind of job meet the swapper at every place of the tree.
    void Race(const std::function<void()>& job) {
        Fill();
        const std::string before = Manifest("Outside");
        for (int round = 0; round < rounds; ++round) {
            Shell("rm -rf T To swap");
            Fill();
            Folder("To");
            const std::string number = std::to_string(round % 4);
            switch (round % 3) {
            case 0: // the chosen folder itself
                RunAgainst("T", At("Outside"), job);
                break;
            case 1: // one in it
                RunAgainst("T/Sub" + number, At("Outside/Sub" + number), job);
                break;
            default: // a file
                RunAgainst("T/Sub" + number + "/f3", At("Outside/Sub" + number + "/f3"), job);
            }
            ExpectOutsideAsItWas(before);
        }
        EXPECT_GT(swaps_, 500);
    }

  private:
    std::atomic<int> swaps_ = 0;
};

TEST_F(RacingTest, WhileTheEntriesAreDeleted) {
    Race([this] { Delete(".", "T"); });
}

TEST_F(RacingTest, WhileTheEntriesAreMoved) {
    Race([this] { Take(".", "T", "To", true); });
}

TEST_F(RacingTest, WhileTheEntriesAreCopied) {
    Race([this] { Take(".", "T", "To", false); });
}

TEST_F(RacingTest, WhileTheTargetIsFilled) {
    Fill();
    const std::string before = Manifest("Outside");
    for (int round = 0; round < rounds; ++round) {
        Shell("rm -rf T To swap");
        Fill();
        Folder("To/T/Sub1");
        const bool isMove = round % 2 == 0;
        RunAgainst(round % 3 == 0 ? "To/T" : "To/T/Sub1", At("Outside"),
                   [&] { Take(".", "T", "To", isMove); });
        ExpectOutsideAsItWas(before);
    }
}

TEST_F(RacingTest, WhileAnAncestorIsSwapped) {
    Fill();
    Shell("mkdir Elsewhere && cp -a Outside Elsewhere/T");
    const std::string before = Manifest("Elsewhere");
    for (int round = 0; round < rounds; ++round) {
        Shell("rm -rf A swap && mkdir A && cp -a Outside A/T");
        const Descriptor held = Open("A"); // as the job does it when it begins
        RunAgainst("A", At("Elsewhere"), [&] { Remove({held.Get(), "T", true, cards}, clerk); });
        ASSERT_EQ(Manifest("Elsewhere"), before);
        ASSERT_FALSE(StatusOf(held.Get(), "T"));
    }
}

} // namespace
