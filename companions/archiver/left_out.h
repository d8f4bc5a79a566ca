#pragma once
// What was left out of an archive, or not taken out of it, and why: each reason is told once, with the first
// one's name and how many more there were.

#include <string>
#include <vector>

namespace archiver {

class LeftOut {
  public:
    /// `reason` is the same text for all that it holds for, and stands for one as well as for many: "links
    /// are not followed". The name may be anything.
    void Add(const std::wstring& name, const std::wstring& reason);
    bool IsEmpty() const { return groups_.empty(); }
    /// Lines that each begin with a line break.
    std::wstring Lines() const;

  private:
    struct Group {
        std::wstring reason;
        std::wstring firstName;
        int count;
    };
    std::vector<Group> groups_;
};

/// "1 file" or "5 files".
std::wstring CountOfFiles(int count);

} // namespace archiver
