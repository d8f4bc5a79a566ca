#pragma once
// The owner of an open file or folder of the host's.

#include <utility>

#include <unistd.h>

class Descriptor {
  public:
    Descriptor() = default;
    explicit Descriptor(int number) : number_(number) {}
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        if (this != &other) {
            Close();
            number_ = std::exchange(other.number_, -1);
        }
        return *this;
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() { Close(); }

    int Get() const { return number_; }
    explicit operator bool() const { return number_ >= 0; }
    int Release() { return std::exchange(number_, -1); }

    /// Closes it. False when the host could not keep what was written.
    bool Close() { return number_ < 0 || ::close(std::exchange(number_, -1)) == 0; }

  private:
    int number_ = -1;
};
