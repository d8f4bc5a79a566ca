#pragma once
// Programs of the host that Wine runs on: what they are told of files, and their start.

#include <span>
#include <vector>

#include <windows.h>

/// Whether the host is one that runs such programs: Wine's. Windows has none.
bool HasHostPrograms();

/// `path` as the host writes it, terminated; empty when its folder does not exist, and when it has a name
/// that the host cannot be told of.
std::vector<wchar_t> HostPath(const wchar_t* path);

/// Starts a program of the host's with the words and behind them the paths, each of HostPath. Wine tells when
/// it has begun but not when it is done. False, with the error set, also for a path that cannot be passed on.
bool StartOnHost(const wchar_t* program, const wchar_t* words, std::span<const std::vector<wchar_t>> paths);
