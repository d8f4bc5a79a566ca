#pragma once
// What the program under Wine and its hand on the host (companions/hosthand) say to each other: messages of a
// length, a kind and fields, over two FIFOs. Both ends are of one build, but either may be cut off in the
// middle, so what is read is measured. Names and paths are the host's bytes, paths from the device's root
// down with slashes: "Folder/name".

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <utility>
#include <vector>

namespace hand {

/// What stands before the fields of a message.
struct Header {
    std::uint32_t length; // of the fields, in bytes
    std::uint32_t kind;
};

/// Longer messages are nobody's.
constexpr std::uint32_t longestMessage = 64 * 1024;

/// How long a file may still take once the job has been cancelled, in milliseconds.
constexpr int patienceAfterCancel = 2000;

enum class Kind : std::uint32_t {
    // To the hand, each answered by Result:
    Hold = 1,      // folder -> whatever takes the path, from now on it means the folder it is now
    Remove,        // folder, name, isFolder
    Transfer,      // folder, name, isFolder, target folder, target name, isMove
    Rename,        // path, new path, replaces
    RemoveFile,    // path
    RemoveFolder,  // path
    SetAttributes, // path, attributes of the entry itself
    // To the hand, without an answer:
    Answer, // yes
    Cancel,
    // From the hand:
    Result,    // ResultCode, host's error number, left out, at both places
    Progress,  // units done since the last, name
    AskFile,   // path below the entry, "" for the entry itself: Answer
    AskFolder, // the same
    AskSource, // path below the entry of a source that is open elsewhere, whether to write: Answer
    AskTarget, // the same of a target
};

enum class ResultCode : std::uint32_t {
    Done,
    Stopped, // by Cancel
    Failed,
    SourceStays, // it could not be removed from its old place
};

class MessageWriter {
  public:
    explicit MessageWriter(Kind kind) : bytes_(sizeof(Header)), kind_(kind) {}

    MessageWriter& Number(std::uint32_t value) {
        Append(&value, sizeof(value));
        return *this;
    }
    MessageWriter& Text(std::string_view text) {
        Number(static_cast<std::uint32_t>(text.size()));
        Append(text.data(), text.size());
        return *this;
    }

    /// The message as it is sent; empty when it is too long.
    std::vector<std::byte> Finish() {
        const Header header{static_cast<std::uint32_t>(bytes_.size() - sizeof(Header)),
                            static_cast<std::uint32_t>(kind_)};
        if (header.length > longestMessage)
            return {};
        std::memcpy(bytes_.data(), &header, sizeof(header));
        return std::move(bytes_);
    }

  private:
    void Append(const void* data, std::size_t size) {
        const auto* first = static_cast<const std::byte*>(data);
        bytes_.insert(bytes_.end(), first, first + size);
    }

    std::vector<std::byte> bytes_;
    Kind kind_;
};

/// Takes the fields of a message apart. What is not there reads as 0 and ""; IsWhole tells.
class MessageReader {
  public:
    MessageReader(const std::byte* fields, std::size_t size) : next_(fields), left_(size) {}

    std::uint32_t Number() {
        std::uint32_t value = 0;
        if (Take(sizeof(value)))
            std::memcpy(&value, next_ - sizeof(value), sizeof(value));
        return value;
    }
    /// Points into the message.
    std::string_view Text() {
        const std::uint32_t size = Number();
        return Take(size) ? std::string_view(reinterpret_cast<const char*>(next_ - size), size)
                          : std::string_view();
    }
    /// Whether every field asked for was there, and no more.
    bool IsWhole() const { return whole_ && left_ == 0; }

  private:
    bool Take(std::size_t size) {
        if (size > left_) {
            whole_ = false;
            left_ = 0;
            return false;
        }
        next_ += size;
        left_ -= size;
        return true;
    }

    const std::byte* next_;
    std::size_t left_;
    bool whole_ = true;
};

} // namespace hand
