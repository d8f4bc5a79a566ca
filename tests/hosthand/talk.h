#pragma once
// A program's side of the talk with its hand.

#include <cerrno>
#include <optional>
#include <vector>

#include <gtest/gtest.h>

#include <unistd.h>

#include "companions/hosthand/channel.h"
#include "companions/hosthand/job.h"

class Talk {
  public:
    Talk() = default;
    Talk(Descriptor ask, Descriptor tell) : ask_(std::move(ask)), tell_(std::move(tell)) {}

    void Say(hand::MessageWriter&& message) { SayBytes(message.Finish()); }
    void SayBytes(const std::vector<std::byte>& bytes) {
        ASSERT_EQ(write(ask_.Get(), bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
    }
    /// To a server that may have ended by what it was told.
    void Shout(const std::vector<std::byte>& bytes) {
        const bool isTaken = write(ask_.Get(), bytes.data(), bytes.size()) >= 0;
        EXPECT_TRUE(isTaken || errno == EPIPE);
    }
    std::optional<Message> Hear() {
        hand::Header header{};
        if (!ReadAll(&header, sizeof(header)) || header.length > hand::longestMessage)
            return std::nullopt;
        Message message{static_cast<hand::Kind>(header.kind), std::vector<std::byte>(header.length)};
        return ReadAll(message.fields.data(), message.fields.size()) ? std::optional(message) : std::nullopt;
    }
    /// Hears until the result; questions get `yes`.
    Outcome HearResult(bool yes = true) {
        while (const auto message = Hear()) {
            hand::MessageReader fields = message->Reader();
            if (message->kind == hand::Kind::Result) {
                Outcome outcome;
                outcome.code = static_cast<hand::ResultCode>(fields.Number());
                outcome.error = static_cast<int>(fields.Number());
                outcome.leftOut = fields.Number();
                outcome.atBothPlaces = fields.Number();
                EXPECT_TRUE(fields.IsWhole());
                return outcome;
            }
            if (message->kind == hand::Kind::Progress) {
                units += fields.Number();
                fields.Text();
                EXPECT_TRUE(fields.IsWhole());
            } else {
                questions.push_back(static_cast<std::uint32_t>(message->kind));
                Say(std::move(hand::MessageWriter(hand::Kind::Answer).Number(yes)));
            }
        }
        return Failure(EPIPE);
    }
    void StopTelling() { ask_.Close(); }
    void End() {
        ask_.Close();
        tell_.Close();
    }

    std::uint32_t units = 0;
    std::vector<std::uint32_t> questions;

  private:
    bool ReadAll(void* data, std::size_t size) {
        for (auto* next = static_cast<char*>(data); size > 0;) {
            const ssize_t count = read(tell_.Get(), next, size);
            if (count <= 0)
                return false;
            next += count;
            size -= static_cast<std::size_t>(count);
        }
        return true;
    }

    Descriptor ask_, tell_;
};

inline hand::MessageWriter Removal(const char* folder, const char* name, bool isFolder) {
    return std::move(
        hand::MessageWriter(hand::Kind::Remove).Text(folder).Text(name).Number(isFolder ? 1 : 0));
}

inline hand::MessageWriter Transferring(const char* folder, const char* name, const char* target,
                                        bool isMove) {
    return std::move(hand::MessageWriter(hand::Kind::Transfer)
                         .Text(folder)
                         .Text(name)
                         .Number(1)
                         .Text(target)
                         .Text(name)
                         .Number(isMove ? 1 : 0));
}
