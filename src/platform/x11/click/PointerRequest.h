#pragma once

#include "platform/x11/connection/XcbConnection.h"

namespace corvane::x11 {

/// The question where the pointer is and which buttons are down, put with the requests before it;
/// the answer is waited for when it is read.
class PointerRequest {
  public:
    /// The connection outlives the question.
    explicit PointerRequest(const XcbConnection &connection)
        : connection_(connection),
          cookie_(xcb_query_pointer(connection.get(), connection.root())) {}
    ~PointerRequest() {
        if (!isAnswered_) {
            xcb_discard_reply(connection_.get(), cookie_.sequence);
        }
    }

    PointerRequest(const PointerRequest &) = delete;
    PointerRequest &operator=(const PointerRequest &) = delete;

    /// Null when the server does not answer. Once only.
    XcbReply<xcb_query_pointer_reply_t> answer() {
        isAnswered_ = true;
        return XcbReply<xcb_query_pointer_reply_t>(
            xcb_query_pointer_reply(connection_.get(), cookie_, nullptr));
    }

  private:
    const XcbConnection &connection_;
    const xcb_query_pointer_cookie_t cookie_;
    bool isAnswered_ = false;
};

} // namespace corvane::x11
