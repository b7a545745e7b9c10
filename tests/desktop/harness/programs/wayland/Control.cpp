#include "Control.h"

#include "GnomeControl.h"
#include "GnomeShell.h"
#include "KWinControl.h"

namespace corvane::desktop {

std::unique_ptr<Control> Control::make(const wayland::Connection &connection) {
    if (GnomeShell::isRunning()) {
        return std::make_unique<GnomeControl>();
    }
    return std::make_unique<KWinControl>(connection);
}

} // namespace corvane::desktop
