#include "foldertree/tree_rules.h"

#include <algorithm>

NodeImages ImagesOf(std::wstring_view name, DWORD attributes, const SpecialNames& special) {
    if (EqualNoCase(name, special.startMenu))
        return {treeImageStartMenu, treeImageStartMenu};
    if (EqualNoCase(name, special.network))
        return {treeImageNetwork, treeImageNetwork};
    if (attributes & FILE_ATTRIBUTE_STORAGE_CARD)
        return {treeImageCard, treeImageCard};
    if (EqualNoCase(name, special.documents))
        return {treeImageDocuments, treeImageDocuments};
    return {treeImageFolder, treeImageFolderOpen};
}

bool IsHiddenFromTree(std::wstring_view name) {
    return EqualNoCase(name, L"Recycled");
}

bool UpwardPath::Prepend(std::wstring_view component) {
    if (component.size() + 1 > start_)
        return false;
    start_ -= component.size() + 1;
    text_[start_] = L'\\';
    std::copy(component.begin(), component.end(), text_.begin() + static_cast<std::ptrdiff_t>(start_) + 1);
    return true;
}

PathComponents::PathComponents(std::wstring_view path) : rest_(path) {
    Next(); // what stands before the first backslash is no component
}

std::wstring_view PathComponents::Next() {
    const std::wstring_view component = rest_.substr(0, rest_.find(L'\\'));
    hasNext_ = component.size() < rest_.size();
    rest_.remove_prefix(hasNext_ ? component.size() + 1 : rest_.size());
    return component;
}
