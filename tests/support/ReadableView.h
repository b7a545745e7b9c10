#pragma once

#include "presentation/View.h"

#include <string>

namespace corvane::testing {

/// The whole tree as indented text, one view a line with everything it shows: what a test compares
/// with and a failure prints.
std::string readableText(const View &view);

} // namespace corvane::testing
