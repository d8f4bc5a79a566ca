#pragma once
// Taking entries with all that is in them, for a platform that can do so better than by its calls for single
// files.

#include <memory>

namespace ce {

enum class StepResult {
    Done,
    Stopped,     // because the watch said so
    Failed,      // what was not done yet is as it was
    SourceStays, // failed: what is copied cannot be removed from its old place
};

/// An entry as it was chosen.
struct TreeEntry {
    const wchar_t* folder;
    const wchar_t* name;
    bool isFolder;
};

/// Follows what is done, and answers for it. All on the thread that does it.
class TreeWatch {
  public:
    /// Asked again and again. False stops it: at once, but for a file that takes no more than two seconds.
    virtual bool KeepGoing() = 0;
    /// What is worked on now.
    virtual void OnName(const wchar_t* name) = 0;
    /// So many files and folders more are done.
    virtual void OnUnits(int count) = 0;
    /// Something has the target's name. Whether it is to be replaced, or used when it is a folder.
    virtual bool MayReplaceFile(const wchar_t* target, const wchar_t* source) = 0;
    virtual bool MayUseFolder(const wchar_t* target) = 0;

  protected:
    ~TreeWatch() = default;
};

/// The steps of one job, on one thread.
class TreeSteps {
  public:
    TreeSteps() = default;
    TreeSteps(const TreeSteps&) = delete;
    TreeSteps& operator=(const TreeSteps&) = delete;
    virtual ~TreeSteps() = default;

    /// From now on the path means the folder that has it now, whatever takes its place. A disk may keep it
    /// waiting: the watch is asked whether to go on.
    virtual void Hold(const wchar_t* folder, TreeWatch& watch) = 0;
    /// Deletes the entry and all that is in it, without a question.
    virtual StepResult Remove(const TreeEntry& entry, TreeWatch& watch) = 0;
    /// Copies or moves the entry, a folder entry by entry, into a folder where it gets a name.
    virtual StepResult Transfer(const TreeEntry& entry, const wchar_t* targetFolder,
                                const wchar_t* targetName, bool isMove, TreeWatch& watch) = 0;

    /// How many entries could not be taken along so far, and stay where they were.
    int LeftOut() const { return leftOut_; }
    /// How many are at their old and their new place, because they could not be removed from the old one.
    int AtBothPlaces() const { return atBothPlaces_; }

  protected:
    void AddLeftOut(int leftOut, int atBothPlaces) {
        leftOut_ += leftOut;
        atBothPlaces_ += atBothPlaces;
    }

  private:
    int leftOut_ = 0;
    int atBothPlaces_ = 0;
};

} // namespace ce
