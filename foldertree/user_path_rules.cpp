#include "foldertree/user_path_rules.h"

#include "common/name_rules.h"
#include "common/path.h"

std::wstring_view NewUserPath(std::wstring_view currentFolder, std::wstring_view deviceName) {
    return currentFolder.empty() || currentFolder == searchFolder ? deviceName : currentFolder;
}

std::wstring_view TypedUserPath(std::wstring_view text, std::wstring_view deviceName) {
    return text.empty() ? deviceName : StoredName(text);
}

bool HasForbiddenPathCharacter(std::wstring_view path) {
    constexpr std::wstring_view forbiddenInNames = forbiddenCharacters;
    static_assert(forbiddenInNames.front() == L'\\');
    return path.find_first_of(forbiddenInNames.substr(1)) != std::wstring_view::npos;
}
