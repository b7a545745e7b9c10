#include "platform/macos/logic/HeldBackPresses.h"

namespace corvane::macos {

namespace {

/// An ordinary press is delivered sooner than this.
constexpr HeldBackPresses::Time heldBackFrom{0.3};
/// Presses that were held back together are delivered within this time.
constexpr HeldBackPresses::Time delivery{0.2};

} // namespace

bool HeldBackPresses::counts(Time pressed, Time delivered) {
    if (delivered - pressed < heldBackFrom) {
        heldBack_.reset();
        return true;
    }
    const bool isFirst = !heldBack_ || delivered - *heldBack_ >= delivery;
    heldBack_ = delivered;
    return isFirst;
}

} // namespace corvane::macos
