#pragma once
// The steps of a job by the platform's calls for single files: for platforms that have nothing better.

#include <memory>

#include "platform/ce_api.h"

std::unique_ptr<ce::TreeSteps> MakeSingleSteps();
