#include "app/name_rules.h"

bool HasForbiddenCharacter(std::wstring_view name) {
    return name.find_first_of(forbiddenCharacters) != std::wstring_view::npos;
}
