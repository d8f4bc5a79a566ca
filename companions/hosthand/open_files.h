#pragma once
// The files that programs under the same Wine have open. Wine keeps them apart by itself, where one has said
// that others must not share its file; the host knows nothing of it.

#include <chrono>
#include <set>
#include <string>
#include <utility>

#include <sys/types.h>

class OpenFiles {
  public:
    /// `prefix` is Wine's folder, by whose identity its server is found.
    explicit OpenFiles(const std::string& prefix);

    /// Whether one of them has this number on any volume; as of a moment ago.
    bool Has(ino_t number);
    bool Has(dev_t device, ino_t number);

  private:
    void Refresh();
    void FindServer();

    std::string serverFolder_; // ends the path that the server works in
    std::string openFiles_;    // of the server, as the host lists them
    std::chrono::steady_clock::time_point read_{};
    std::set<std::pair<ino_t, dev_t>> files_;
};
