#include "ProbeWindow.h"

#include "WaitUntil.h"

#include <algorithm>
#include <utility>

namespace corvane::desktop {

ProbeWindow::ProbeWindow(const DisplayConnection &connection)
    : connection_(connection),
      id_(xcb_generate_id(connection.get())) {
    xcb_create_window(connection_.get(), XCB_COPY_FROM_PARENT, id_, connection_.root(), 0, 0, 1, 1,
                      0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
}

void ProbeWindow::close() {
    if (std::exchange(isOpen_, false)) {
        xcb_destroy_window(connection_.get(), id_);
        xcb_flush(connection_.get());
    }
}

bool ProbeWindow::isManaged() const {
    constexpr std::chrono::milliseconds moment{300};
    xcb_map_window(connection_.get(), id_);
    return waitUntil([this] { return isListed(); }, moment);
}

bool ProbeWindow::isListed() const {
    const auto windows = connection_.properties(connection_.root(), "_NET_CLIENT_LIST");
    return std::ranges::find(windows, id_) != windows.end();
}

} // namespace corvane::desktop
