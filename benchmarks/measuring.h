#pragma once
// Measuring: how long something takes, and what is made of it.

#include <cstddef>
#include <utility>

/// Processor time this process has used, in microseconds. Unlike the wall's clock it does not count what
/// others do on the machine.
double ProcessorTime();

/// The processor time of one call of `run`: the mean of as many calls as make the clock's steps small.
template <class Run>
double TimeOf(Run run) {
    constexpr double enough = 400'000;
    const double start = ProcessorTime();
    double used = 0;
    int calls = 0;
    do {
        run();
        ++calls;
        used = ProcessorTime() - start;
    } while (used < enough);
    return used / calls;
}

/// The processor time of a single call.
template <class Run>
double TimeOnce(Run run) {
    const double start = ProcessorTime();
    run();
    return ProcessorTime() - start;
}

/// The clock on the wall, in microseconds: most of a file call's time is the platform's, not this process's.
double WallTime();

/// A user's commands come with pauses: the disk is done with what there is, nobody seems to be changing it,
/// and the system gives a thread that has rested its processor sooner, whether it makes bare calls or a
/// job's.
void Rest();

/// How long `run` takes after a rest.
template <class Run>
double WallTimeOf(Run run) {
    Rest();
    const double start = WallTime();
    run();
    return WallTime() - start;
}

/// Prints a ratio with the limit it has to stay under; over it, the whole run fails.
void ReportRatio(const char* what, double ratio, double limit);

/// Prints a time, which depends on the machine and has no limit.
void ReportTime(const char* what, double microseconds);

/// True when a ratio was over its limit.
bool AnyOverLimit();

/// Bytes that operator new has handed out and not got back.
std::size_t OwnBytes();
