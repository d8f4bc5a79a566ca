#pragma once
// Programs of the host that Wine runs on: what they are told of files.

#include <vector>

#include <windows.h>

/// Whether the host is one that runs such programs: Wine's. Windows has none.
bool HasHostPrograms();

/// `path` as the host writes it, terminated; empty when its folder does not exist, and when it has a name
/// that the host cannot be told of.
std::vector<wchar_t> HostPath(const wchar_t* path);
