#include <cstdio>

#include "app/app_state.h"
#include "benchmarks/measurements.h"
#include "benchmarks/measuring.h"
#include "platform/handles.h"

namespace {

constexpr wchar_t folder[] = L"\\Windows";
constexpr wchar_t file[] = L"File Manager_user_manual.htm";
constexpr int draws = 1000;

} // namespace

void MeasureIcons() {
    std::printf("Icons\n");
    IconSet icons;
    icons.BuildIconSet(false);
    icons.IconIndexFor(file, folder, FILE_ATTRIBUTE_ARCHIVE);
    Path path;
    if (!path.AssignChild(folder, file))
        return;
    const double kept = TimeOf([&] {
        for (int draw = 0; draw < draws; ++draw)
            icons.IconIndexFor(file, folder, FILE_ATTRIBUTE_ARCHIVE);
    });
    const double fetched = TimeOf([&] {
        for (int draw = 0; draw < draws; ++draw) {
            SHFILEINFOW info{};
            ce::SHGetFileInfo(path.Text(), 0, &info, sizeof(info), SHGFI_ICON | SHGFI_SMALLICON);
            const IconHandle icon(info.hIcon);
        }
    });
    ReportTime("an icon drawn again", kept / draws);
    ReportRatio("an icon drawn again : the shell's look-up", kept / fetched, 0.1);
}
