#include "platform/linux/AccessibilityGuide.h"

#include "support/Localised.h"

namespace corvane::linux {

namespace {

std::string headingFor(AccessibilityObstacle obstacle) {
    return obstacle == AccessibilityObstacle::none
               ? localised("Corvane can click in other applications")
               : localised("Corvane cannot click in other applications");
}

/// What the user is to do in the desktop's own window, and what for.
std::string howToConsent() {
    return localised("In the window that follows, choose every screen, switch on “Allow Remote "
                     "Interaction” and confirm. Of the screens Corvane reads only where the "
                     "pointer is, never their content.");
}

std::vector<std::string> paragraphsFor(AccessibilityObstacle obstacle) {
    switch (obstacle) {
    case AccessibilityObstacle::consentNeeded:
        return {localised("This desktop asks you before it lets a program click: once, or each "
                          "time the program starts."),
                howToConsent()};
    case AccessibilityObstacle::consentRefused:
        return {localised("The desktop has asked you whether Corvane may click, and the question "
                          "was refused or closed."),
                howToConsent()};
    case AccessibilityObstacle::consentWithoutPointer:
        return {localised("“Allow Remote Interaction” was not switched on, so Corvane cannot "
                          "press the mouse button."),
                howToConsent()};
    case AccessibilityObstacle::consentWithoutScreen:
        return {localised("No screen was chosen, so Corvane cannot find the pointer."),
                howToConsent()};
    case AccessibilityObstacle::consentEnded:
        return {localised("The permission to click has been taken back."), howToConsent()};
    case AccessibilityObstacle::noScreenCast:
        return {localised("The PipeWire library (libpipewire-0.3) is missing, through which this "
                          "desktop tells where the pointer is. Install it and start Corvane "
                          "again.")};
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
    case AccessibilityObstacle::kwinRefusal:
        return {
            localised("KDE Plasma lets only programs press the mouse button whose desktop file "
                      "asks for it. It does not accept Corvane’s (corvane-mouse-button.desktop)."),
            localised("Quit Corvane and start it again. If that does not help, install it and "
                      "start it from the applications menu.")};
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
            .closeButton = isAnsweredByUser(obstacle) ? localised("Continue") : localised("Close")};
}

bool isAnsweredByUser(AccessibilityObstacle obstacle) {
    switch (obstacle) {
    case AccessibilityObstacle::consentNeeded:
    case AccessibilityObstacle::consentRefused:
    case AccessibilityObstacle::consentWithoutPointer:
    case AccessibilityObstacle::consentWithoutScreen:
    case AccessibilityObstacle::consentEnded:
        return true;
    case AccessibilityObstacle::none:
    case AccessibilityObstacle::noTestExtension:
    case AccessibilityObstacle::waylandSession:
    case AccessibilityObstacle::kwinRefusal:
    case AccessibilityObstacle::noScreenCast:
        break;
    }
    return false;
}

} // namespace corvane::linux
