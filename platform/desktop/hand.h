#pragma once
// The program's hand on the host that Wine runs on: a program of the host's own that does with files what
// Wine cannot (companions/hosthand). It is started for one job or question and ends with this object, or with
// the program.

#include <optional>
#include <string_view>
#include <vector>

#include "platform/desktop/hand_protocol.h"
#include "platform/handles.h"

/// Whether the host is one that has a hand: Wine's. Windows does by itself what is asked.
bool HasHand();

/// A path on the device, or a name, as the hand knows it. Nothing, with the error set, when the path leads
/// off the device or is no text.
std::optional<std::vector<char>> HandPath(const wchar_t* path);
std::optional<std::vector<char>> HandName(std::wstring_view name);

/// What the hand says.
struct HandMessage {
    hand::Kind kind{};
    std::vector<std::byte> fields;

    hand::MessageReader Reader() const { return {fields.data(), fields.size()}; }
};

class Hand {
  public:
    /// Starts it. False when that fails, which leaves it ended.
    bool Start();
    bool IsStarted() const { return static_cast<bool>(tell_); }

    /// False when the hand has ended.
    bool Send(const std::vector<std::byte>& message);
    /// Waits for the next message. False when the hand has ended.
    bool Read(HandMessage& message);
    void End();

  private:
    bool Meet(std::wstring_view place);
    bool ReadAll(void* data, DWORD size);

    FileHandle ask_;
    FileHandle tell_;
};

/// The error of the platform's that stands for one of the host's.
DWORD ErrorOfHost(std::uint32_t number);

/// Has a hand do one thing. False, with the error set, when it cannot.
BOOL AskHandOnce(hand::MessageWriter request);

/// Has the host remove what hands that ended suddenly have left. Does not wait for it.
void SweepLeftovers();
