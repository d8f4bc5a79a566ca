#pragma once
// How the program bears it. Each of these ends by exception, with what is wrong, when it does not.

#include <cstddef>

#include "tests/support/program.h"

/// The program answers within so many milliseconds, or has ended as it should.
void ExpectAnswer(Program& program, unsigned milliseconds);

/// Whether nothing but the main window is open.
bool IsAtRest(Program& program);

/// Leaves whatever is open by Back, and by Return where a message wants an answer, and waits for what still
/// works.
void LeaveByKeys(Program& program);

/// What the program holds of the system.
struct Holdings {
    std::size_t bytes = 0;
    DWORD handles = 0;
};
Holdings HoldingsOf(const Program& program);

/// Of two looks at rest, the later holds no more than a listing's worth more.
void ExpectNoGrowth(const Holdings& first, const Holdings& last);
