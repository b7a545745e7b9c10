#pragma once

#include "Samples.h"

#include <chrono>
#include <functional>

namespace corvane::bench {

/// A thread that is woken by a timer again and again, and beside `work` does nothing at all: what
/// it takes is the machine's, whoever is woken. The processor time of each turn, in milliseconds.
Samples costsOfTurns(std::chrono::milliseconds pause, int turns, const std::function<void()> &work);

} // namespace corvane::bench
