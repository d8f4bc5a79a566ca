#pragma once
// Folders to measure with.

#include "common/path.h"

/// A folder of the device with `count` empty files of mixed names, made when it is not there yet.
Path SampleFolder(int count);
