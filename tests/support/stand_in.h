#pragma once
// Small programs at the places of the device's own, which record how they were started.

#include <string>
#include <vector>

class StandIn {
  public:
    /// Puts the program onto the device.
    explicit StandIn(const std::wstring& path);
    StandIn(const StandIn&) = delete;
    StandIn& operator=(const StandIn&) = delete;
    ~StandIn();

    const std::wstring& Path() const { return path_; }
    /// The command lines it was started with so far, the program's own name left out.
    std::vector<std::wstring> Starts() const;

    /// From now on a start goes on running until the stand-in goes.
    void Stay();
    /// How many starts run.
    std::size_t Running() const;

  private:
    std::wstring path_;
};
