#pragma once
// Who attends to the work while it is done: is told how far it is, may stop it, and is asked before a file is
// replaced. All calls come from the thread that does the work.

#include <cstdint>
#include <optional>
#include <string_view>

#include <windows.h>

namespace archiver {

/// What a question shows of one of its two files.
struct FileFacts {
    std::uint64_t size = 0;
    std::optional<FILETIME> time;
};

/// A file that is there, and the one that would take its place.
struct ReplaceQuestion {
    std::wstring_view path; // as the device names it
    DWORD attributes = 0;   // of the one that is there
    FileFacts there;
    FileFacts coming;
};

enum class ReplaceAnswer { Yes, No, All, NoneOfAll, Cancel };

class Attendant {
  public:
    virtual ~Attendant() = default;
    /// How much there is to do, as far as is known.
    virtual void SetTotals(std::uint64_t files, std::uint64_t bytes) = 0;
    /// What is worked on now.
    virtual void ShowName(std::wstring_view name) = 0;
    virtual void AddBytes(std::uint64_t bytes) = 0;
    virtual void AddFile() = 0;
    virtual bool IsCancelled() = 0;
    virtual ReplaceAnswer AskReplace(const ReplaceQuestion& question) = 0;
};

} // namespace archiver
