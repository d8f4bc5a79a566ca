#pragma once
// The desktop shell's own shortcut files, which are binary: where one leads, read without trusting a length
// in it.

#include <optional>
#include <span>
#include <vector>

/// What a shell link starts; neither text is terminated.
struct ShellLink {
    std::vector<wchar_t> path;
    std::vector<wchar_t> arguments;
};

/// Reads a shell link from its file's bytes. Nothing when they are none, or it leads to no path of a drive.
std::optional<ShellLink> ReadShellLink(std::span<const char> bytes);
