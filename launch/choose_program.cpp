#include "launch/choose_program.h"

#include <memory>

#include "app/app_state.h"
#include "launch/choose_program_dialog.h"
#include "launch/shell_start.h"

int ChooseProgram(const ProgramChoice& choice) {
    if (ExtensionOf(choice.name.View()).empty())
        return 0;
    // Too large for the phone's stack.
    return static_cast<int>(std::make_unique<ProgramChooser>(choice)->Run(appState.mainWindow));
}

void ChooseProgramForSelection() {
    const std::optional<SelectionEntry> file = SelectedFile();
    if (!file)
        return;
    ProgramChoice choice;
    if (choice.folder.Assign(file->folder.data()) && choice.name.Assign(file->name.data()))
        ChooseProgram(choice);
}
