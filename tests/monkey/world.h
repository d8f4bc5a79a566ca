#pragma once
// The device that a monkey is let loose on, with all that people's devices have, and what of it may change.

#include <atomic>
#include <thread>

#include "tests/monkey/chance.h"
#include "tests/support/device.h"

class World {
  public:
    World();

    /// Remembers the device's files as they are now.
    void RememberDevice();
    /// Ends by exception when they have changed since.
    void ExpectDeviceUnchanged() const;
    /// The same for what lies outside the device, to which links lead that are entries of it.
    void ExpectOutsideUnchanged() const;

  private:
    Device device_;
};

/// Folders that are there, or were, or never are.
extern const wchar_t* const places[13];

/// Another process that makes, renames and removes files below \Play while it lives.
class Disturber {
  public:
    explicit Disturber(unsigned seed);
    ~Disturber();
    Disturber(const Disturber&) = delete;
    Disturber& operator=(const Disturber&) = delete;

  private:
    void Run(Chance chance);

    std::atomic<bool> ended_ = false;
    std::thread thread_;
};
