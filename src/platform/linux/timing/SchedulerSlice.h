#pragma once

namespace corvane::linux {

/// Has the calling thread let on to a processor as soon as it is woken, though others are busy
/// there; in return it may be interrupted sooner. Threads and programs it starts are as usual.
/// Where the kernel does not know how, nothing changes.
void requestSchedulerSlice();

} // namespace corvane::linux
