#pragma once
// What a job of the hand's goes by: whom it tells and asks, and how it ends.

#include <string>
#include <string_view>

#include <sys/types.h>

#include "companions/hosthand/folder.h"
#include "platform/desktop/hand_protocol.h"

/// A job's view of who gave it.
class Employer {
  public:
    /// False once the job shall stop. Asked often.
    virtual bool KeepGoing() = 0;
    /// After that: whether a file that is being copied may still be finished.
    virtual bool MayFinishFile() = 0;
    virtual void Name(std::string_view name) = 0;
    virtual void CompleteUnit() = 0;
    /// Whether what is at the path below the entry may be replaced, or used when it is a folder.
    virtual bool MayReplaceFile(const std::string& below) = 0;
    virtual bool MayUseFolder(const std::string& below) = 0;
    /// Whether somebody under Wine may have the file open: the host does not keep such programs apart.
    virtual bool IsOpenElsewhere(dev_t device, ino_t number) = 0;
    virtual bool MightBeOpenElsewhere(ino_t number) = 0;
    /// Whether a file that is open elsewhere may be touched all the same.
    virtual bool MayTouchSource(const std::string& below, bool toRemove) = 0;
    virtual bool MayTouchTarget(const std::string& below) = 0;
    /// An entry that exists for the time of the job only, so that it can be found after a sudden end: it is
    /// about to be made, it has been made, it has gone or is called otherwise.
    virtual void BeginTemporary(int folder, const std::string& name) = 0;
    virtual void MadeTemporary() = 0;
    virtual void EndTemporary() = 0;

  protected:
    ~Employer() = default;
};

/// An entry as it was chosen.
struct Chosen {
    int folder;
    std::string name;
    bool isFolder; // as the one who chose it saw it
    const Cards& cards;
};

struct Outcome {
    hand::ResultCode code = hand::ResultCode::Done;
    int error = 0;             // the host's number of what went wrong
    unsigned leftOut = 0;      // entries that could not be taken along
    unsigned atBothPlaces = 0; // that were copied and cannot be removed from their old place

    bool IsDone() const { return code == hand::ResultCode::Done; }
};

/// An outcome of errno, or of another of the host's error numbers.
Outcome Failure();
Outcome Failure(int error);

/// "folder/name", and "name" where the path is "".
std::string Below(const std::string& path, const std::string& name);
