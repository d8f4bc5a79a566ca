#pragma once
// The dialog of "Choose Program...".

#include <optional>
#include <string_view>

#include "common/dialog_frame.h"
#include "launch/associations.h"
#include "launch/choose_program.h"
#include "platform/handles.h"

/// Ends with 1 for a program chosen, 0 otherwise.
class ProgramChooser final : public DialogFrame {
  public:
    explicit ProgramChooser(const ProgramChoice& choice);

  private:
    HWND OnInit() override;
    void OnCommand(int id, int notification) override;

    void OnBrowse();
    void OnConfirm();
    bool TakeBrowsed(std::wstring_view program);
    void AddBrowsed(ProgramList& programs) const;
    void StoreBrowsed(const ProgramRecord& chosen);

    /// Finds the programs anew and shows them; selects `selectProgramPath`, or without one what opens such
    /// files by now.
    void fillList(std::wstring_view selectProgramPath);
    void AddProgram(const ProgramRecord& record, int row);
    /// Puts the program's icon into `icons` and returns its place there.
    static int AddIcon(const ProgramRecord& record, HIMAGELIST icons);
    int RowToSelect(std::wstring_view selectProgramPath) const;
    void SelectRow(int row);
    /// The selected program: the first of its description. Null when none is selected.
    const ProgramRecord* Selected() const;
    void StartOnFile(const ProgramRecord& record) const;

    HWND List() const;
    const wchar_t* Extension() const;

    const ProgramChoice& choice_;
    ProgramList programs_;
    std::optional<AssociationTexts> browsed_; // stored only when it is chosen
    ImageListHandle icons_;
};
