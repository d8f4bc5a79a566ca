#pragma once
// What a monkey does: one thing after another, as the dice fall.

#include <string>

#include "tests/monkey/chance.h"
#include "tests/support/program.h"

/// Anything that a person or another process can do. Says what it was.
std::string DoAnything(Program& program, Chance& chance);

/// Something that only looks: nothing of it may change a file. To be done while no menu and no dialog is
/// open.
std::string Look(Program& program, Chance& chance);
