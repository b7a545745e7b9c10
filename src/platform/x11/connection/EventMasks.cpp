#include "platform/x11/connection/EventMasks.h"

#include <functional>
#include <numeric>
#include <utility>

namespace corvane::x11 {

EventMasks::Selection::Selection(EventMasks &masks, xcb_window_t window, std::uint32_t mask)
    : masks_(&masks),
      window_(window),
      mask_(mask) {
    masks.add(window, mask);
}

EventMasks::Selection &EventMasks::Selection::operator=(Selection &&other) noexcept {
    std::swap(masks_, other.masks_);
    std::swap(window_, other.window_);
    std::swap(mask_, other.mask_);
    return *this;
}

EventMasks::Selection::~Selection() {
    if (masks_ != nullptr) {
        masks_->remove(window_, mask_);
    }
}

void EventMasks::add(xcb_window_t window, std::uint32_t mask) {
    auto &masks = masks_[window];
    masks.insert(mask);
    apply(window, masks);
}

void EventMasks::remove(xcb_window_t window, std::uint32_t mask) {
    const auto known = masks_.find(window);
    auto &masks = known->second;
    masks.erase(masks.find(mask));
    apply(window, masks);
    if (masks.empty()) {
        masks_.erase(known);
    }
}

void EventMasks::apply(xcb_window_t window, const std::multiset<std::uint32_t> &masks) const {
    const std::uint32_t united =
        std::accumulate(masks.begin(), masks.end(), std::uint32_t{0}, std::bit_or<>());
    xcb_change_window_attributes(connection_.get(), window, XCB_CW_EVENT_MASK, &united);
}

} // namespace corvane::x11
