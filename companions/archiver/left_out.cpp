#include "companions/archiver/left_out.h"

#include <algorithm>

namespace archiver {

namespace {

constexpr std::size_t longestName = 80;   // shown
constexpr std::size_t mostReasons = 50;   // kept: those with a system's words in them may differ every time
constexpr std::size_t longestLines = 800; // characters, so that the caller's buffer takes the end as well

/// A name as it can be shown, whatever it holds.
std::wstring NameForPeople(const std::wstring& name) {
    std::wstring shown = name.substr(0, longestName);
    std::replace_if(
        shown.begin(), shown.end(), [](wchar_t letter) { return letter < L' '; }, L' ');
    return name.size() > longestName ? shown + L"..." : shown;
}

} // namespace

void LeftOut::Add(const std::wstring& name, const std::wstring& reason) {
    auto group = std::find_if(groups_.begin(), groups_.end(),
                              [&](const Group& known) { return known.reason == reason; });
    if (group == groups_.end() && groups_.size() >= mostReasons)
        group = groups_.end() - 1;
    if (group == groups_.end())
        groups_.push_back({reason, NameForPeople(name), 1});
    else
        ++group->count;
}

std::wstring LeftOut::Lines() const {
    std::wstring lines;
    int untold = 0;
    for (const Group& group : groups_) {
        std::wstring line = L"\n'" + group.firstName + L"'";
        if (group.count > 1)
            line += L" and " + std::to_wstring(group.count - 1) + L" more";
        line += (group.count > 1 ? L" were" : L" was") + std::wstring(L" left out: ") + group.reason + L".";
        if (untold == 0 && lines.size() + line.size() <= longestLines)
            lines += line;
        else
            untold += group.count;
    }
    if (untold > 0)
        lines += L"\n" + std::to_wstring(untold) + L" more were left out.";
    return lines;
}

std::wstring CountOfFiles(int count) {
    return std::to_wstring(count) + (count == 1 ? L" file" : L" files");
}

} // namespace archiver
