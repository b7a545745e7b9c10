#include "TargetProgram.h"
#include "platform/linux/timing/SchedulerSlice.h"

#include <memory>

int main() {
    // Its clicks are timed.
    corvane::linux::requestSchedulerSlice();
    const std::unique_ptr<xcb_connection_t, decltype([](xcb_connection_t *connection) {
                              xcb_disconnect(connection);
                          })>
        connection(xcb_connect(nullptr, nullptr));
    if (xcb_connection_has_error(connection.get()) != 0) {
        return 1;
    }
    return corvane::desktop::TargetProgram(connection.get()).run() ? 0 : 1;
}
