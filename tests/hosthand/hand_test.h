#pragma once
// What the tests of the hand begin with: a folder of their own, and an employer that answers and notes.

#include <atomic>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "companions/hosthand/job.h"
#include "companions/hosthand/journal.h"

/// Lets everything be done, unless a test says otherwise.
class Clerk final : public Employer {
  public:
    bool KeepGoing() override { return !keepGoing || keepGoing(); }
    bool MayFinishFile() override { return mayFinishFile; }
    void Name(std::string_view name) override { names.emplace_back(name); }
    void CompleteUnit() override { ++units; }
    bool MayReplaceFile(const std::string& below) override {
        questions.push_back("file " + below);
        return replaces;
    }
    bool MayUseFolder(const std::string& below) override {
        questions.push_back("folder " + below);
        return usesFolders;
    }
    bool IsOpenElsewhere(dev_t, ino_t number) override { return number == openElsewhere; }
    bool MightBeOpenElsewhere(ino_t number) override { return number == openElsewhere; }
    bool MayTouchSource(const std::string& below, bool) override {
        questions.push_back("source " + below);
        return false;
    }
    bool MayTouchTarget(const std::string& below) override {
        questions.push_back("target " + below);
        return false;
    }
    void BeginTemporary(int folder, const std::string& name) override {
        temporaries.push_back(name);
        if (journal)
            journal->Announce(folder, name);
        temporaryFolder_ = folder;
    }
    void MadeTemporary() override {
        if (journal)
            journal->Note(temporaryFolder_, temporaries.back());
    }
    void EndTemporary() override {
        ++temporariesEnded;
        if (journal)
            journal->Clear();
    }

    std::function<bool()> keepGoing;
    bool mayFinishFile = false;
    bool replaces = true;
    bool usesFolders = true;
    ino_t openElsewhere = 0;

    std::vector<std::string> names;
    std::vector<std::string> questions;
    std::vector<std::string> temporaries;
    int temporariesEnded = 0;
    int units = 0;
    Journal* journal = nullptr; // where temporaries are noted

  private:
    int temporaryFolder_ = -1;
};

/// Each test works in a fresh folder.
class HandTest : public testing::Test {
  protected:
    HandTest();
    ~HandTest() override;

    std::string At(const std::string& path) const { return home_ + '/' + path; }
    /// Makes a file, and the folders above it.
    void File(const std::string& path, const std::string& content = "text") const;
    void Folder(const std::string& path) const;
    void Link(const std::string& path, const std::string& text) const;
    /// Runs a line of the host's shell in the folder.
    void Shell(const std::string& line) const;
    bool Exists(const std::string& path) const;
    std::string Content(const std::string& path) const;
    /// Every entry at and below the path: its kind, rights, text and content, a line each.
    std::string Manifest(const std::string& path) const;

    Descriptor Open(const std::string& path) const;
    Outcome Delete(const std::string& folder, const std::string& name, bool isFolder = true);
    Outcome Take(const std::string& folder, const std::string& name, const std::string& target, bool isMove,
                 bool isFolder = true);

    Clerk clerk;
    Cards cards; // none, but in tests of them

  private:
    std::string home_;
};
