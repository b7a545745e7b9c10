#pragma once

#include "Samples.h"

#include <benchmark/benchmark.h>

#include <chrono>

namespace corvane::bench {

/// Times each pass of a benchmark that uses manual time and reports the median and the 99th
/// percentile, in milliseconds. `between` is done after each pass and not timed.
template <typename Work, typename Between>
void timeEachPass(benchmark::State &state, Work work, Between between) {
    using Clock = std::chrono::steady_clock;
    Samples milliseconds;
    for ([[maybe_unused]] auto pass : state) {
        const auto start = Clock::now();
        work();
        const std::chrono::duration<double> time = Clock::now() - start;
        state.SetIterationTime(time.count());
        milliseconds.add(std::chrono::duration<double, std::milli>(time).count());
        between();
    }
    state.counters["median"] = milliseconds.median();
    state.counters["p99"] = milliseconds.percentile(99);
}

} // namespace corvane::bench
