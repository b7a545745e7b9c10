#pragma once

namespace corvane::linux {

/// Requests a 100 µs scheduler slice, so that the calling thread preempts busy threads when it is
/// woken; in return it may be preempted sooner. Threads and programs that it starts are not
/// affected. Does nothing before Linux 6.12, or under another scheduling policy than the default.
void requestSchedulerSlice();

} // namespace corvane::linux
