#include "Compositors.h"

#include "GnomeDesktop.h"
#include "KWinDesktop.h"
#include "LabwcDesktop.h"
#include "SwayDesktop.h"

namespace corvane::desktop {

std::unique_ptr<WaylandDesktop> makeWaylandDesktop(const std::string &compositor) {
    if (compositor == "gnome") {
        return std::make_unique<GnomeDesktop>();
    }
    if (compositor == "kwin") {
        return std::make_unique<KWinDesktop>();
    }
    if (compositor == "kwin_eis") {
        return std::make_unique<KWinDesktop>(KWinDesktop::Permission::missing);
    }
    if (compositor == "labwc") {
        return std::make_unique<LabwcDesktop>();
    }
    return std::make_unique<SwayDesktop>();
}

} // namespace corvane::desktop
