#pragma once

#include "Samples.h"

namespace corvane::bench {

/// The least that anything can do for a click: read the pointer, press, sleep, release, sleep. It
/// neither wakes early nor waits awake, so what it takes is the machine's. Clicks at the pointer
/// on the display that the environment names, with these sleeps; the result is the thread's
/// processor time of each click, in milliseconds.
Samples clickBarely(int clickCount);

/// From press to press of `clickBarely`, in milliseconds, as far as it sleeps.
inline constexpr double barePeriod = 30;

} // namespace corvane::bench
