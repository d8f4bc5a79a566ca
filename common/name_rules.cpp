#include "common/name_rules.h"

#include "common/path.h"

bool HasForbiddenCharacter(std::wstring_view name) {
    return name.find_first_of(forbiddenCharacters) != std::wstring_view::npos;
}

std::wstring_view StoredName(std::wstring_view typed) {
    const std::wstring_view leaf = LeafOf(typed);
    const std::size_t last = leaf.find_last_not_of(L" .");
    return last == std::wstring_view::npos ? typed : typed.substr(0, typed.size() - leaf.size() + last + 1);
}
