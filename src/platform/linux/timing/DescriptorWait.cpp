#include "platform/linux/timing/DescriptorWait.h"

#include <algorithm>
#include <array>
#include <cerrno>

#include <poll.h>
#include <sys/eventfd.h>

namespace corvane::linux {

DescriptorWait::DescriptorWait(platform::ContinuousClock &clock, WakeUpLatency &lead,
                               NextClickDeadline &awaited)
    : clock_(clock),
      lead_(lead),
      awaited_(awaited),
      wakeUp_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {}

void DescriptorWait::waitUntil(platform::Instant deadline,
                               const std::function<void()> &justBefore) {
    awaited_.set(deadline);
    lead_.waitUntil(
        clock_, deadline, [this](platform::Instant instant) { sleepUntil(instant); }, justBefore,
        [this] { return isCancelled(); });
}

void DescriptorWait::sleepUntil(platform::Instant instant) const {
    if (wakeUp_.isOpen() && timer_.set(instant)) {
        waitForDescriptors();
    } else {
        sleepInSlices(instant);
    }
}

void DescriptorWait::cancel() {
    isCancelled_ = true;
    eventfd_write(wakeUp_.get(), 1);
}

void DescriptorWait::waitForDescriptors() const {
    std::array<pollfd, 2> descriptors{{{.fd = timer_.get(), .events = POLLIN, .revents = 0},
                                       {.fd = wakeUp_.get(), .events = POLLIN, .revents = 0}}};
    while (poll(descriptors.data(), descriptors.size(), -1) < 0 && errno == EINTR) {
    }
}

void DescriptorWait::sleepInSlices(platform::Instant deadline) const {
    constexpr auto slice = std::chrono::milliseconds(5);
    while (!isCancelled_) {
        const auto left = deadline - clock_.now();
        if (left <= left.zero()) {
            return;
        }
        clock_.hold(std::min<std::chrono::nanoseconds>(left, slice));
    }
}

} // namespace corvane::linux
