#pragma once
// The two FIFOs between the hand and the program.

#include <cstddef>
#include <string>
#include <vector>

#include "companions/hosthand/descriptor.h"
#include "platform/desktop/hand_protocol.h"

struct Message {
    hand::Kind kind{};
    std::vector<std::byte> fields;

    hand::MessageReader Reader() const { return {fields.data(), fields.size()}; }
};

class Channel {
  public:
    Channel(Descriptor in, Descriptor out) : in_(std::move(in)), out_(std::move(out)) {}

    /// Waits for a message. False when the program is gone, or says what is none.
    bool Read(Message& message);
    /// Whether something has come, its end included.
    bool HasIncoming() const;
    /// False when the program is gone.
    bool Send(const std::vector<std::byte>& message);
    /// Whether a message can be sent without waiting.
    bool HasRoom() const;

  private:
    bool ReadAll(void* data, std::size_t size);

    Descriptor in_;
    Descriptor out_;
};

/// Makes a place named by `token` in `folder` that no other user can enter, waits until the program has come
/// there, and removes it. The ends are not open when it does not come.
Channel MeetProgram(const std::string& folder, const std::string& token);
