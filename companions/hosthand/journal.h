#pragma once
// What a hand that ends suddenly has left, written down so that the next start of the program can tell it
// from files of like names that are somebody's own.

#include <string>

#include "companions/hosthand/descriptor.h"

class Journal {
  public:
    /// Notes go into `folder`, under a name with `token`, once there is one.
    Journal(std::string folder, std::string token) : folder_(std::move(folder)), token_(std::move(token)) {}
    Journal(const Journal&) = delete;
    Journal& operator=(const Journal&) = delete;
    ~Journal();

    /// An entry is about to be made: `name` in the open folder, where there is none such.
    void Announce(int folder, const std::string& name);
    /// It has been made.
    void Note(int folder, const std::string& name);
    /// It has gone, or is called otherwise.
    void Clear();

  private:
    bool Open();

    std::string folder_;
    std::string token_;
    Descriptor notes_;
};

/// Removes what hands that are gone have noted in `folder` and not cleared, and the notes.
void SweepJournals(const std::string& folder);

/// Opens what the hand keeps beside itself as its own until it is closed: a sweep leaves it alone. `flags`
/// are those of open.
Descriptor OpenOwned(const std::string& path, int flags);

/// What such names begin with; the token follows.
constexpr char ownPrefix[] = "hand.";
constexpr char notesSuffix[] = ".notes";
