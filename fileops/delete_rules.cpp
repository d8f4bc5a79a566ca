#include "fileops/delete_rules.h"

#include "common/path.h"
#include "common/text.h"
#include "fileops/file_job.h"

void WriteOpeningQuestion(QuestionText& text, std::span<const SelectionEntry> entries) {
    if (entries.size() != 1) {
        FormatText(text, L"Do you really want to delete %d files ?", static_cast<int>(entries.size()));
        return;
    }
    const SelectionEntry& entry = entries.front();
    if (entry.kind == ItemKind::Folder)
        WriteFolderQuestion(text, entry.name.data());
    else
        FormatText(text, L"Do you really want to delete '%s' ?", LeafOf(entry.name.data()).data());
}

void WriteFolderQuestion(QuestionText& text, std::wstring_view path) {
    FormatText(text, L"'%s' is a folder. Do you really want to delete it ?", LeafOf(path).data());
}

bool WriteFileQuestion(QuestionText& text, std::wstring_view path, DWORD attributes) {
    const wchar_t* name = LeafOf(path).data();
    if (attributes & FILE_ATTRIBUTE_SYSTEM)
        FormatText(text, L"'%s' is a System file. Do you really want to delete it ?", name);
    else if (attributes & FILE_ATTRIBUTE_READONLY)
        FormatText(text, L"The file '%s' is READ-ONLY. Do you really want to delete it ?", name);
    else
        return false;
    return true;
}

int FirstDeleteMode(std::size_t entryCount) {
    return entryCount < 2 ? modeAll : modeAsk;
}

bool DeleteAsks(int mode) {
    return mode == modeAsk || mode == modeSkipped;
}
