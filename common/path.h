#pragma once
// Paths. The root is the empty text; every other folder has a leading backslash and none at its end.

#include <array>
#include <cstddef>
#include <string_view>

/// Characters of a path's buffer, its terminating zero included.
constexpr std::size_t pathCapacity = 260;

/// The pseudo-folder that shows the results of a file search; told apart exactly and case-sensitively.
constexpr wchar_t searchFolder[] = L"File Search";

/// A stored text of at most 259 characters.
using PathText = std::array<wchar_t, pathCapacity>;

/// A path of at most 259 characters, always terminated. Operations that would not fit return false and leave
/// the path as it was.
class Path {
  public:
    Path() = default;

    /// Takes `text` over. False when it is too long.
    [[nodiscard]] bool Assign(std::wstring_view text);
    /// Appends `text` as it stands. False when it would not fit.
    [[nodiscard]] bool Append(std::wstring_view text);
    /// Becomes "folder\name", whether or not `folder` ends in a backslash. False when it would not fit.
    [[nodiscard]] bool AssignChild(std::wstring_view folder, std::wstring_view name);
    /// Becomes the pattern that enumerates `folder`: "folder\*.*". False when it would not fit.
    [[nodiscard]] bool AssignPattern(std::wstring_view folder);
    /// Cuts the text to its first `length` characters, if it has more.
    void Truncate(std::size_t length);
    void Clear() { Truncate(0); }

    const wchar_t* Text() const { return text_.data(); }
    std::wstring_view View() const { return {text_.data(), length_}; }
    std::size_t Length() const { return length_; }
    bool IsEmpty() const { return length_ == 0; }
    bool IsSearchFolder() const { return View() == searchFolder; }

  private:
    std::array<wchar_t, pathCapacity> text_{};
    std::size_t length_ = 0;
};

/// The text behind the last backslash; the whole text when there is none.
std::wstring_view LeafOf(std::wstring_view path);

/// The text before the last backslash; the empty text when there is none.
std::wstring_view ParentOf(std::wstring_view path);

/// The extension with its dot, from the last "." of the name on; empty when the name has none.
std::wstring_view ExtensionOf(std::wstring_view name);

/// Equal without regard to case, by the platform's own rule.
bool EqualNoCase(std::wstring_view a, std::wstring_view b);
