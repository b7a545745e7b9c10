#pragma once

#include <functional>
#include <vector>

#include <sys/types.h>

namespace corvane::desktop {

/// The users a test can act as beside its own: for root the one who owns nothing, else none.
std::vector<uid_t> otherUsers();

/// Does the work as that user, in a thread of its own, and waits for its end.
void actAs(uid_t user, const std::function<void()> &work);

} // namespace corvane::desktop
