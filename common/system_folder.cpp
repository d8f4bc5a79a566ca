#include "common/system_folder.h"

#include "common/text.h"

SystemFolder::SystemFolder(std::wstring_view path) : place_(PlaceOfFolder(path)) {
    if (!path_.Assign(path))
        path_.Clear();
}

bool SystemFolder::IsNamed(const wchar_t* folder, const wchar_t* name) const {
    Path path;
    return path.AssignChild(folder, name) && EqualNoCase(path.View(), path_.View());
}

bool SystemFolder::Is(const wchar_t* folder, const wchar_t* name) {
    return IsNamed(folder, name) || places_.Is(folder, name, place_);
}

bool SystemFolder::GoesWith(const wchar_t* folder, const wchar_t* name) {
    return IsNamed(folder, name) || places_.Holds(folder, name, place_);
}

bool SystemFolder::KeepsItsName(std::wstring_view folder, std::wstring_view name, std::wstring_view newName) {
    return name != newName && GoesWith(CopyText(folder).get(), CopyText(name).get());
}
