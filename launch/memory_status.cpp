#include "launch/memory_status.h"

#include "app/app_state.h"
#include "common/dialog_frame.h"
#include "launch/memory_report.h"
#include "resources/resource.h"

namespace {

constexpr DialogLook look{
    {IDD_MEMORY_240, IDD_MEMORY_320, IDD_MEMORY_SMALL}, IDR_MENUBAR_MEMORY, false, true};

void AddProgramMemory(MemoryReport& report) {
    MEMORYSTATUS memory{};
    memory.dwLength = sizeof(memory);
    GlobalMemoryStatus(&memory);
    report.Add(L"Program ", memory.dwAvailPhys, memory.dwTotalPhys);
}

void AddVolume(MemoryReport& report, const wchar_t* folder, std::wstring_view label) {
    ULARGE_INTEGER available{};
    ULARGE_INTEGER total{};
    ULARGE_INTEGER free{};
    if (ce::GetDiskFreeSpaceExW(folder, &available, &total, &free))
        report.Add(label, free.QuadPart, total.QuadPart);
}

void AddCards(MemoryReport& report) {
    constexpr DWORD card = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_TEMPORARY;
    WIN32_FIND_DATAW found{};
    const FindHandle find(ce::FindFirstFileW(L"\\*.*", &found));
    if (!find)
        return;
    do {
        Path folder;
        Path label;
        if ((found.dwFileAttributes & card) == card && folder.AssignChild(L"", found.cFileName) &&
            label.Assign(found.cFileName) && label.Append(L" "))
            AddVolume(report, folder.Text(), label.View());
    } while (ce::FindNextFileW(find.Get(), &found));
}

class MemoryDialog final : public DialogFrame {
  public:
    MemoryDialog() : DialogFrame(look) {}

  private:
    HWND OnInit() override {
        MemoryReport report;
        AddProgramMemory(report);
        AddVolume(report, L"\\", L"Data\t");
        AddCards(report);
        SetDlgItemTextW(Window(), IDC_MEMORY_TEXT, report.Text());
        SendDlgItemMessageW(Window(), IDC_MEMORY_TEXT, EM_SETSEL, 0, 0);
        return Control(IDC_MEMORY_TEXT);
    }

    void OnCommand(int id, int) override {
        if (id == IDM_MEMORY_OK || id == IDOK || id == IDCANCEL)
            End(IDOK);
    }
};

} // namespace

void showMemoryStatus() {
    MemoryDialog().Run(appState.mainWindow);
}
