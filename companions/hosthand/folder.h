#pragma once
// Folders held open, and what is in them. Whatever is done to an entry is done by the open folder and one
// name, and no link is followed but those that are asked for: nothing that takes the place of a folder on the
// way leads a job elsewhere.

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include <sys/stat.h>
#include <sys/types.h>

#include "companions/hosthand/descriptor.h"

/// What tells a file or folder from every other one there is.
struct Identity {
    dev_t device = 0;
    ino_t number = 0;
    bool operator==(const Identity&) const = default;
};

Identity IdentityOf(const struct stat& status);

/// The status of the entry itself, a link's own for a link.
std::optional<struct stat> StatusOf(int folder, const std::string& name);
std::optional<struct stat> StatusOf(int opened);

/// The device's storage cards: links at its root, as they were when the job began. What becomes a link there
/// later is none.
class Cards {
  public:
    Cards() = default;
    explicit Cards(int root);

    /// Whether the entry of the open folder, with its own status, is one.
    bool Has(int folder, const struct stat& status) const;

  private:
    Identity root_;
    std::vector<Identity> links_;
};

/// Opens a folder to read it. A link to one is not opened (ELOOP or ENOTDIR).
Descriptor OpenFolder(int parent, const std::string& name);
/// Opens a folder, or the one that a link leads to.
Descriptor OpenThroughLink(int parent, const std::string& name);

/// Whether another file system, or another part of one, is mounted at the open folder.
bool IsMountPoint(int folder);

/// Finds `name` in the folder as the phone would: the very name, else one that differs in case only. Empty
/// when there is none.
std::string FindName(int folder, std::string_view name);

/// Opens the folder at `path` below `root`, links included. Each part is found by FindName. Errors in errno.
Descriptor OpenPath(int root, std::string_view path);

/// Reads what is in a folder, in portions.
class FolderReader {
  public:
    /// The folder has to stay open meanwhile.
    explicit FolderReader(int folder) : folder_(folder) {}

    struct Entry {
        std::string name;
        ino_t number = 0;
        bool mayBeFolder = true; // what the listing says: to be seen for oneself
    };
    /// False at the end, and when the folder cannot be read any further: Failed tells.
    bool Next(Entry& entry);
    bool Failed() const { return failed_; }
    /// Begins again.
    void Rewind();

  private:
    int folder_;
    std::vector<char> block_;
    std::size_t used_ = 0;
    std::size_t filled_ = 0;
    bool failed_ = false;
};

/// The names in a folder that receives, as the phone tells them apart.
class TargetNames {
  public:
    /// A folder that the job has made holds nothing but what the job puts there.
    explicit TargetNames(bool isNew) : isRead_(isNew) {}

    /// The entry that takes the place of `name`: itself, or one that differs in case only, unless it is the
    /// job's own or has a namesake beside the source. Empty when the name is free.
    std::string Find(int folder, const std::string& name, int sourceFolder);
    /// The job has put `name` there.
    void Add(const std::string& name) { added_.insert(name); }

  private:
    void Read(int folder);

    bool isRead_;
    std::unordered_map<std::string, std::string> byUpperCase_;
    std::unordered_set<std::string> added_;
};
