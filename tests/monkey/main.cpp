// A monkey at the program: seeded keys, taps, commands, messages and hand-overs, while others change files.
// It watches that the program lives, answers, can be left, holds no more and more, and changes nothing that
// nobody asked it to. ./monkey starts it.

#include <cstdio>
#include <cstdlib>
#include <deque>
#include <fstream>
#include <optional>
#include <stdexcept>

#include <windows.h>

#include "tests/monkey/actions.h"
#include "tests/monkey/health.h"
#include "tests/monkey/world.h"
#include "tests/support/host.h"

namespace {

constexpr int roundSteps = 150;
constexpr std::size_t keptLines = 25;

struct Options {
    unsigned seed = 1;
    unsigned seconds = 60;
    unsigned patience = 2000; // milliseconds
};

class Monkey {
  public:
    explicit Monkey(const Options& options)
        : options_(options), log_("Z:" + HostVariable("TARVIK_WORK") + "/monkey.log") {}

    /// A round with its own seed: the same does the same, whatever rounds were before it.
    void Round(unsigned seed) {
        Chance chance(seed);
        World world;
        const bool onlyLooks = seed % 3 == 0;
        Note("round with seed " + std::to_string(seed) + (onlyLooks ? ": only looks" : ""));
        if (onlyLooks)
            world.RememberDevice();
        program_.Start(L"\\Play");
        {
            std::optional<Disturber> disturber;
            if (!onlyLooks && seed % 2 == 0)
                disturber.emplace(seed);
            Play(chance, onlyLooks);
        }
        LeaveByKeys(program_);
        world.ExpectOutsideUnchanged();
        if (onlyLooks)
            world.ExpectDeviceUnchanged();
        if (program_.IsRunning())
            program_.Close();
        ExpectAnswer(program_, options_.patience);
    }

    int Steps() const { return steps_; }

    void PrintLast() const {
        for (const std::string& line : last_)
            std::printf("  %s\n", line.c_str());
    }

  private:
    void Play(Chance& chance, bool onlyLooks) {
        Holdings before;
        for (int step = 0; step < roundSteps; ++step) {
            if (!program_.IsRunning())
                program_.Start(L"\\Play");
            if (onlyLooks)
                LeaveByKeys(program_);
            Note(onlyLooks ? Look(program_, chance) : DoAnything(program_, chance));
            ++steps_;
            Sleep(chance.UpTo(3) == 0 ? chance.UpTo(400) : 10);
            ExpectAnswer(program_, options_.patience);
            if (step == roundSteps / 3) {
                LeaveByKeys(program_);
                before = HoldingsOf(program_);
            }
        }
        LeaveByKeys(program_);
        if (program_.IsRunning() && before.handles != 0)
            ExpectNoGrowth(before, HoldingsOf(program_));
    }

    void Note(const std::string& line) {
        log_ << line << std::endl;
        last_.push_back(line);
        if (last_.size() > keptLines)
            last_.pop_front();
    }

    Options options_;
    Program program_; // lives on after a fault, for the picture
    std::ofstream log_;
    std::deque<std::string> last_;
    int steps_ = 0;
};

Options ReadOptions(int argc, char** argv) {
    Options options;
    const auto number = [&](int place, unsigned otherwise) {
        return argc > place ? static_cast<unsigned>(std::strtoul(argv[place], nullptr, 10)) : otherwise;
    };
    options.seed = number(1, options.seed);
    options.seconds = number(2, options.seconds);
    options.patience = number(3, options.patience);
    return options;
}

} // namespace

int main(int argc, char** argv) {
    const Options options = ReadOptions(argc, argv);
    SetCurrentDirectoryW(L"E:\\");
    Monkey monkey(options);
    unsigned seed = options.seed;
    try {
        const ULONGLONG begin = GetTickCount64();
        do
            monkey.Round(seed++);
        while (GetTickCount64() - begin < options.seconds * 1000ULL);
        std::printf("%d steps, seeds %u to %u: nothing went wrong\n", monkey.Steps(), options.seed, seed - 1);
        return 0;
    } catch (const std::exception& failure) {
        const std::string name = "monkey." + std::to_string(seed - 1);
        std::printf("Seed %u, step %d: %s\nA picture: %s\n", seed - 1, monkey.Steps(), failure.what(),
                    KeepScreenshot(name).c_str());
        monkey.PrintLast();
        RunOnHost("cp \"$TARVIK_WORK/monkey.log\" \"$TARVIK_FAILURES/" + name + ".log\"");
        return 1;
    }
}
