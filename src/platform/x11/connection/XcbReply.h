#pragma once

#include <cstdlib>
#include <memory>

namespace corvane::x11 {

/// Gives memory back that XCB allocated.
struct XcbFree {
    // NOLINTNEXTLINE(cppcoreguidelines-no-malloc, cppcoreguidelines-owning-memory)
    void operator()(void *memory) const { std::free(memory); }
};

/// A reply, an event or an error of the X server.
template <typename Reply>
using XcbReply = std::unique_ptr<Reply, XcbFree>;

} // namespace corvane::x11
