#pragma once
// How soon the program answers while it works.

#include <algorithm>
#include <functional>
#include <string>

#include "tests/ui/job_ui.h"

class AnswersUi : public JobUi {
  protected:
    static constexpr double limit = 100; // milliseconds
    static constexpr double givesUp = 5000;

    /// Milliseconds from some moment on.
    static double Now() {
        LARGE_INTEGER ticks{}, perSecond{};
        QueryPerformanceCounter(&ticks);
        QueryPerformanceFrequency(&perSecond);
        return 1000.0 * static_cast<double>(ticks.QuadPart) / static_cast<double>(perSecond.QuadPart);
    }

    /// How long a message takes that is sent to the program now.
    double SentAnswerTime() const {
        const double begun = Now();
        DWORD_PTR answer = 0;
        SendMessageTimeoutW(program.Window(), WM_NULL, 0, 0, SMTO_NORMAL, static_cast<UINT>(givesUp),
                            &answer);
        const double taken = Now() - begun;
        Sleep(1); // it is there to do something else
        return taken;
    }

    /// The longest answer from now on, where a job begins, to the end of its dialog.
    double LongestAnswer(const std::function<double()>& answerTime) const {
        constexpr double jobTakesAtMost = 60000;
        double longest = 0;
        int asked = 0;
        const double begun = Now();
        for (bool seen = false; Now() - begun < jobTakesAtMost;) {
            const double answer = answerTime();
            const bool shown = program.HasDialog();
            if (seen && !shown)
                break;
            seen = seen || shown;
            longest = std::max(longest, answer);
            ++asked;
        }
        EXPECT_GT(asked, 10);
        return longest;
    }

    /// The program's own slowness shows in every round, that of a busy machine in some.
    template <class Round>
    void ExpectInTime(Round longestOfRound) {
        constexpr int rounds = 4;
        double longest = givesUp;
        for (int round = 0; round < rounds && longest > limit; ++round)
            longest = std::min(longest, longestOfRound());
        EXPECT_LE(longest, limit);
        RecordProperty("longest", std::to_string(longest));
    }
};
