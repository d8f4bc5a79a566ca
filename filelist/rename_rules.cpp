#include "filelist/rename_rules.h"

#include "common/name_rules.h"

LabelVerdict JudgeLabel(const wchar_t* label, ItemKind kind) {
    if (!label)
        return LabelVerdict::Keep;
    if (HasForbiddenCharacter(label))
        return LabelVerdict::Forbidden;
    if (kind == ItemKind::UpLevel)
        return LabelVerdict::Keep;
    return *label ? LabelVerdict::Rename : LabelVerdict::Empty;
}

bool NameFromLabel(std::wstring_view label, std::wstring_view oldName, bool extensionHidden, Path& name) {
    if (!name.Assign(label) || (extensionHidden && !name.Append(ExtensionOf(oldName))))
        return false;
    name.Truncate(StoredName(name.View()).size());
    return true;
}
