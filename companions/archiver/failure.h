#pragma once
// What could not be done, in words for the user.

#include <string>
#include <utility>

namespace archiver {

class Attendant;

/// Thrown where something cannot be done; caught where the work as a whole, or one member, ends.
class Failure {
  public:
    explicit Failure(std::wstring reason) : reason_(std::move(reason)) {}
    const std::wstring& Reason() const { return reason_; }

  private:
    std::wstring reason_;
};

/// Ends everything, not only the member at hand: the rest would fail in the same way.
class FinalFailure : public Failure {
  public:
    using Failure::Failure;
};

/// The archive is damaged from here on.
class DamagedArchive : public FinalFailure {
  public:
    using FinalFailure::FinalFailure;
};

/// Thrown where the work ends because the user wants it to.
class Cancelled {};

/// Ends the work when the user wants it to. To be called between any two steps that take long.
void GoOn(Attendant& attendant);

/// The system's own words for an error.
std::wstring SystemWords(unsigned long error);

/// Throws with the system's words for the last error: "what: words". A full disk is final.
[[noreturn]] void FailBySystem(const std::wstring& what);

} // namespace archiver
