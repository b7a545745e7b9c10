#include "BusListener.h"

#include "TextFile.h"
#include "WaitUntil.h"

#include <algorithm>

namespace corvane::bench {

BusListener::BusListener(const desktop::VirtualDesktop &desktop, const std::string &interface)
    : monitor_(desktop.start({"dbus-monitor", "--session", "--profile",
                              "type='signal',interface='" + interface + "'"})) {
    // It prints a line of headings, and is told its own name once it listens.
    desktop::waitUntil([this] { return monitor_->standardOutput().ends_with('\n'); });
}

int BusListener::signalCount() const {
    return static_cast<int>(std::ranges::count_if(
        desktop::wholeLines(monitor_->standardOutput()),
        [](const auto &line) { return line.starts_with("sig\t") && line.contains("dbusmenu"); }));
}

} // namespace corvane::bench
