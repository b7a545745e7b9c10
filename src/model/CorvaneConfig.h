#pragma once

#include "model/ClickMode.h"
#include "model/CodableRect.h"
#include "model/TimeUnit.h"
#include "model/WindowAnchor.h"

#include <cstdint>
#include <optional>
#include <string>

namespace corvane {

/// One clicking setup.
struct CorvaneConfig {
    ClickMode clickMode = ClickMode::cursor;
    /// Global display space.
    std::optional<CodableRect> zoneRect{};
    /// When present, the zone follows this window.
    std::optional<WindowAnchor> windowAnchor{};
    /// Clicks per `timeUnit`.
    std::int64_t clickRate = 1;
    TimeUnit timeUnit = TimeUnit::seconds;
    /// The limit of one run; 0 means unlimited.
    std::int64_t maxClicks = 0;

    bool operator==(const CorvaneConfig &) const = default;

    /// Seconds from one click to the next; 1.0 when the rate is below 1.
    double clickInterval() const;

    /// "50x", or the localised "unlimited" for exactly 0.
    std::string maxClicksLabel() const;
};

/// Seconds from one click to the next at `clickRate` per `timeUnit`; 1.0 when the rate is below 1.
double clickInterval(std::int64_t clickRate, TimeUnit timeUnit);

} // namespace corvane
