#pragma once

#include "support/Geometry.h"

namespace corvane::macos {

/// The frame of a window that is to be that high: its top edge stays where it is, as far as the
/// visible part of the screen allows, and it is never higher than that part. Screen space.
Rectangle fittedFrame(const Rectangle &frame, double height, const Rectangle &visible);

} // namespace corvane::macos
