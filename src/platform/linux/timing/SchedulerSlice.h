#pragma once

namespace corvane::x11 {

/// Has the calling thread let on to a processor as soon as it is woken, though others are busy
/// there; in return it may be interrupted sooner. Threads and programs it starts are as usual.
/// Where the kernel does not know how, nothing changes.
void takeShortTurns();

} // namespace corvane::x11
