#pragma once

namespace corvane {

/// What the application is doing now.
enum class ClickStatus { idle, pickingZone, running };

} // namespace corvane
