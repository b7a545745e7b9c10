#include "services/WindowResolver.h"

#include "platform/Accessibility.h"
#include "platform/Applications.h"
#include "platform/WindowList.h"
#include "support/Log.h"
#include "support/NumberText.h"

namespace corvane {

namespace {

constexpr std::int64_t normalLayer = 0;

/// The owner's bundle identifier when the window may be anchored to.
std::optional<std::string> anchorableOwner(const platform::WindowListEntry &entry, Point center,
                                           platform::Applications &applications) {
    if (!entry.bounds || !entry.bounds->contains(center) || !entry.ownerProcessIdentifier) {
        return std::nullopt;
    }
    const auto owner = applications.running(*entry.ownerProcessIdentifier);
    if (!owner || !owner->bundleIdentifier ||
        *owner->bundleIdentifier == applications.ownBundleIdentifier() ||
        entry.layer.value_or(normalLayer) != normalLayer) {
        return std::nullopt;
    }
    return owner->bundleIdentifier;
}

} // namespace

std::optional<WindowAnchor> WindowResolver::detectWindow(const Rectangle &zone) const {
    const auto windows = windowList_.onScreenWindows();
    if (!windows) {
        return std::nullopt;
    }
    for (const platform::WindowListEntry &entry : *windows) {
        if (const auto bundleID = anchorableOwner(entry, zone.center(), applications_);
            bundleID && entry.bounds) {
            const std::string title = entry.name.value_or(std::string());
            log("WindowResolver: detected " + *bundleID + " '" + title + "' under zone center");
            return WindowAnchor{
                *bundleID,
                title,
                {zone.x - entry.bounds->x, zone.y - entry.bounds->y, zone.width, zone.height}};
        }
    }
    return std::nullopt;
}

std::optional<ResolvedAnchor> WindowResolver::resolve(const WindowAnchor &anchor) const {
    const Resolution resolution = find(anchor);
    logResolution(resolution);
    return resolution ? std::optional(*resolution) : std::nullopt;
}

WindowResolver::Resolution WindowResolver::find(const WindowAnchor &anchor) const {
    const auto instances = applications_.running(anchor.bundleID);
    if (instances.empty()) {
        return std::unexpected("no running app for " + anchor.bundleID);
    }
    const auto windows = accessibility_.windows(instances.front().processIdentifier);
    if (!windows) {
        return std::unexpected("cannot get windows for " + anchor.bundleID);
    }
    for (const auto &window : *windows) {
        const std::string title = window->title().value_or(std::string());
        if (title.find(anchor.windowTitle) == std::string::npos) {
            continue;
        }
        if (const auto frame = windowFrame(*window)) {
            const CodableRect &relative = anchor.relativeRect;
            const Rectangle zone{frame->x + relative.x, frame->y + relative.y, relative.width,
                                 relative.height};
            return ResolvedAnchor{*frame, zone};
        }
    }
    return std::unexpected("no matching window titled '" + anchor.windowTitle + "'");
}

void WindowResolver::logResolution(const Resolution &resolution) {
    log("WindowResolver: " +
        (resolution ? "resolved to " + rectangleText(resolution->zone) + " (window at " +
                          rectangleText(resolution->windowFrame) + ")"
                    : resolution.error()));
}

std::optional<Rectangle> WindowResolver::windowFrame(platform::AccessibilityWindow &window) {
    const auto position = window.position();
    if (!position) {
        return std::nullopt;
    }
    const auto size = window.size();
    if (!size) {
        return std::nullopt;
    }
    return Rectangle{position->x, position->y, size->width, size->height};
}

} // namespace corvane
