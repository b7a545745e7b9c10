#pragma once

#include "platform/wayland/connection/Connection.h"

#include <memory>

namespace corvane::wayland::kwin {

/// A connection with fake input where KWin is the compositor; null else. KWin gives the right to
/// programs whose desktop file asks for it. A hidden one is written for this program where it is
/// missing; KWin then takes up to three seconds to notice.
std::unique_ptr<Connection> openWithPermission();

} // namespace corvane::wayland::kwin
