#pragma once

#include "presentation/View.h"

namespace corvane::macos {

/// Whether the view's content takes all the width there is.
bool contentFillsWidth(const View &view);

/// Whether the view as a whole, with its padding and frame, takes all the width there is.
bool fillsWidth(const View &view);

} // namespace corvane::macos
