#include "platform/linux/AccessibilityGuide.h"

#include "support/Localised.h"

namespace corvane::linux {

namespace {

std::string headingFor(AccessibilityObstacle obstacle) {
    return obstacle == AccessibilityObstacle::none
               ? localised("Corvane can click in other applications")
               : localised("Corvane cannot click in other applications");
}

std::vector<std::string> paragraphsFor(AccessibilityObstacle obstacle) {
    switch (obstacle) {
    case AccessibilityObstacle::noTestExtension:
        return {localised("The X server does not offer the XTEST extension, through which programs "
                          "press mouse buttons."),
                localised("Start the X server with XTEST enabled. Most servers offer it unless "
                          "their configuration or command line turns it off.")};
    case AccessibilityObstacle::waylandSession:
        return {localised("This is a Wayland session. In such a session a program's clicks do not "
                          "reach other applications."),
                localised("Those that run through XWayland could be reached, but not reliably. So "
                          "Corvane does not click here."),
                localised("Log out, choose a session whose name ends in “on Xorg” or “X11” "
                          "on the login screen, and log in again. The choice is often behind the "
                          "gear button.")};
    case AccessibilityObstacle::none:
        break;
    }
    return {localised("Nothing is missing. Start clicking from the menu or with Super+Shift+Y.")};
}

} // namespace

qt::AccessibilityGuide accessibilityGuide(AccessibilityObstacle obstacle) {
    return {.title = localised("Accessibility"),
            .heading = headingFor(obstacle),
            .paragraphs = paragraphsFor(obstacle),
            .closeButton = localised("Close")};
}

} // namespace corvane::linux
