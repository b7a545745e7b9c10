#include "BareClicks.h"

#include "ProcessUsage.h"
#include "platform/x11/connection/XcbConnection.h"

#include <xcb/xtest.h>

#include <chrono>
#include <cstdint>
#include <thread>

#include <sys/prctl.h>

namespace corvane::bench {

Samples clickBarely(int clickCount) {
    constexpr std::chrono::milliseconds hold(10);
    constexpr std::chrono::milliseconds interval(static_cast<int>(barePeriod) - 10);
    constexpr std::uint8_t leftButton = 1;
    const auto connection = x11::XcbConnection::open().value();
    const auto send = [&connection](std::uint8_t type) {
        xcb_test_fake_input(connection->get(), type, leftButton, XCB_CURRENT_TIME, XCB_NONE, 0, 0,
                            0);
        connection->flush();
    };
    Samples costs;
    std::thread([&] {
        prctl(PR_SET_TIMERSLACK, 1);
        for (int click = 0; click < clickCount; ++click) {
            const double costBefore = threadMilliseconds();
            x11::reply<xcb_query_pointer_reply>(
                connection->get(), xcb_query_pointer(connection->get(), connection->root()));
            send(XCB_BUTTON_PRESS);
            std::this_thread::sleep_for(hold);
            send(XCB_BUTTON_RELEASE);
            std::this_thread::sleep_for(interval);
            costs.add(threadMilliseconds() - costBefore);
        }
    }).join();
    return costs;
}

} // namespace corvane::bench
