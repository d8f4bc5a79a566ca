#pragma once
// Asks the host once, for a whole job, what host_links.h would ask for every file: whether there are links
// among what is to be deleted or moved. The answer comes by itself, before the job begins or in its midst.

#include <optional>
#include <string_view>
#include <vector>

#include <windows.h>

class LinkScan {
  public:
    /// The files right in `folder` are to be looked at; in the root, "", they are not.
    explicit LinkScan(const wchar_t* folder);
    LinkScan(const LinkScan&) = delete;
    LinkScan& operator=(const LinkScan&) = delete;
    ~LinkScan();

    /// And all that lies below the folder `path`, and whether that is a link itself.
    void AddTree(const wchar_t* path);

    /// Sends the host looking, which may be long before the first entry goes. It does nothing on Windows,
    /// where no answer comes.
    void Begin();

    /// Whether the host has answered.
    bool HasAnswer();

    /// Whether `path`, about to be deleted or moved, is known to be no link. Has to be asked for each entry
    /// that goes, in the order of the tree and before it goes: a folder is looked at when the job first comes
    /// to something in it, and is trusted from there on when nobody has changed it since the host was sent
    /// looking.
    bool IsNoLink(const wchar_t* path);

  private:
    /// Tells a folder from another one that takes its path.
    struct Identity {
        DWORD volume;
        ULONGLONG index;
        bool operator==(const Identity&) const = default;
    };

    /// What the host looks at.
    struct Place {
        std::vector<wchar_t> path;
        std::optional<Identity> identity;

        std::wstring_view View() const { return {path.data(), path.size() - 1}; }
    };

    /// A folder on the way down to the last entry asked for.
    struct Level {
        std::size_t length; // of its path
        bool isTrusted;
        LONGLONG change; // its time of change when the job last went on to something below it
    };

    void Follow(std::wstring_view folder);
    bool IsScanned(std::wstring_view folder) const;
    void Push(std::wstring_view folder);
    bool IsWhatItWas(std::wstring_view folder) const;
    LONGLONG LastLevelsChange() const;
    static std::optional<Identity> IdentityOf(const wchar_t* folder);

    Place folder_;
    std::vector<Place> trees_;
    std::vector<wchar_t> answerFile_; // empty before the start, and where none is possible
    LONGLONG start_ = 0;              // as file times
    bool hasAnswer_ = false;
    bool foundNone_ = false;

    std::vector<wchar_t> lastFolder_; // of the last entry asked for
    std::vector<Level> levels_;
};
