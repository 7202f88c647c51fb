#pragma once

#include "pattern.h"

namespace qxtab {

/// The program of a pattern, which begins with step 0. Raises Misuse for one that can't be read, is nested
/// more than 100 deep, or makes more than 10,000 steps.
std::vector<Pattern::Step> patternSteps(std::string_view text);

} // namespace qxtab
