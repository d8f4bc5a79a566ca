#include "common/path.h"

#include <algorithm>
#include <cwctype>

bool Path::Assign(std::wstring_view text) {
    if (text.size() >= pathCapacity)
        return false;
    std::copy(text.begin(), text.end(), text_.begin());
    length_ = text.size();
    text_[length_] = L'\0';
    return true;
}

bool Path::Append(std::wstring_view text) {
    if (length_ + text.size() >= pathCapacity)
        return false;
    std::copy(text.begin(), text.end(), text_.begin() + static_cast<std::ptrdiff_t>(length_));
    length_ += text.size();
    text_[length_] = L'\0';
    return true;
}

bool Path::AssignChild(std::wstring_view folder, std::wstring_view name) {
    if (folder.ends_with(L'\\')) // as it was typed
        folder.remove_suffix(1);
    if (folder.size() + 1 + name.size() >= pathCapacity)
        return false;
    return Assign(folder) && Append(L"\\") && Append(name);
}

bool Path::AssignPattern(std::wstring_view folder) {
    return AssignChild(folder, L"*.*");
}

void Path::Truncate(std::size_t length) {
    length_ = std::min(length, length_);
    text_[length_] = L'\0';
}

std::wstring_view LeafOf(std::wstring_view path) {
    const std::size_t slash = path.rfind(L'\\');
    return slash == std::wstring_view::npos ? path : path.substr(slash + 1);
}

std::wstring_view ParentOf(std::wstring_view path) {
    const std::size_t slash = path.rfind(L'\\');
    return slash == std::wstring_view::npos ? std::wstring_view() : path.substr(0, slash);
}

std::wstring_view ExtensionOf(std::wstring_view name) {
    const std::size_t dot = name.rfind(L'.');
    return dot == std::wstring_view::npos ? std::wstring_view() : name.substr(dot);
}

bool EqualNoCase(std::wstring_view a, std::wstring_view b) {
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](wchar_t x, wchar_t y) {
               return std::towlower(x) == std::towlower(y);
           });
}
