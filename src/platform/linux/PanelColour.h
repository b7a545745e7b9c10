#pragma once

#include <QColor>

namespace corvane::x11 {

class SystemTray;

} // namespace corvane::x11

namespace corvane::linux {

/// The colour in which symbols stand on the desktop's panel: what the tray says, else what the
/// desktop is known for, else one that shows on light and dark. Main thread.
QColor panelColour(const x11::SystemTray &tray);

} // namespace corvane::linux
