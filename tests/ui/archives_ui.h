#pragma once
// What the suites of archives begin with: libraries that stand in for those the device may have.

#include <optional>
#include <string>

#include "tests/support/library_stand_in.h"
#include "tests/ui/job_ui.h"

class ArchivesUi : public JobUi {
  protected:
    void SetUp() override {
        JobUi::SetUp();
        archiver.emplace(L"UNZip.dll");
        dialogs.emplace(L"getFiles.dll");
    }

    void StartAndSelect(const std::wstring& folder, const Texts& names) {
        StartIn(folder);
        Select(names);
        program.WaitForListFocus();
    }

    std::optional<LibraryStandIn> archiver;
    std::optional<LibraryStandIn> dialogs;
};
