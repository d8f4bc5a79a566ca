#pragma once
// Waiting for what the program does in its own time: on conditions, never for a fixed while.

#include <functional>
#include <string>

constexpr int defaultPatience = 10000; // milliseconds

/// Waits until `condition` holds. When it does not within `milliseconds`, the test fails with `what` (which
/// completes "waited in vain ...") and ends by exception.
void WaitFor(const std::string& what, const std::function<bool()>& condition,
             int milliseconds = defaultPatience);

/// Waits until `condition` holds, at most `milliseconds`. Returns whether it does.
bool HoldsWithin(int milliseconds, const std::function<bool()>& condition);

/// Whether `condition` comes to hold: EXPECT_TRUE(Eventually([&] { return !program.HasDialog(); })).
bool Eventually(const std::function<bool()>& condition);

/// Whether `condition` holds all the while: for what must not happen.
bool HoldsFor(int milliseconds, const std::function<bool()>& condition);
