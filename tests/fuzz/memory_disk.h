#pragma once
// The archiver's files, kept in memory, with a folder \Out that nothing may lead out of.

#include <cstddef>
#include <cstdint>

/// Begins anew: the archive, and in \Out a file, a read-only file, a folder and a link to a folder elsewhere.
/// What is made outside of \Out, under a name that is none everywhere, or beyond what was free ends the
/// process.
void ResetDisk(const std::uint8_t* archive, std::size_t size);

/// Ends the process when a file in the making was left behind.
void ExpectNoParts();
