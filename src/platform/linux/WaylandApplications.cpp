#include "platform/linux/WaylandApplications.h"

#include <algorithm>
#include <utility>

#include <unistd.h>

namespace corvane::linux {

using platform::RunningApplication;

WaylandApplications::WaylandApplications(wayland::Windows &windows,
                                         freedesktop::DesktopEntries entries)
    : windows_(windows),
      entries_(std::move(entries)),
      ownProcess_(getpid()) {}

std::optional<RunningApplication> WaylandApplications::running(std::int32_t processIdentifier) {
    const auto applications = all();
    const auto found =
        std::ranges::find(applications, processIdentifier, &RunningApplication::processIdentifier);
    return found != applications.end() ? std::optional(*found) : std::nullopt;
}

std::vector<RunningApplication> WaylandApplications::running(const std::string &bundleIdentifier) {
    auto instances = all();
    std::erase_if(instances, [&](const RunningApplication &each) {
        return each.bundleIdentifier != bundleIdentifier;
    });
    if (instances.empty()) {
        return {};
    }
    return {*std::ranges::min_element(instances, {}, &RunningApplication::processIdentifier)};
}

std::optional<std::string> WaylandApplications::displayName(const std::string &bundleIdentifier) {
    return entries_.nameOf(bundleIdentifier);
}

std::set<std::int32_t> WaylandApplications::processesWith(std::int32_t processIdentifier) {
    std::set processes{processIdentifier};
    const auto application = running(processIdentifier);
    for (const RunningApplication &each : all()) {
        if (application && each.bundleIdentifier == application->bundleIdentifier) {
            processes.insert(each.processIdentifier);
        }
    }
    return processes;
}

/// One entry for each window.
std::vector<RunningApplication> WaylandApplications::all() {
    std::vector<RunningApplication> applications;
    for (const wayland::Window &window :
         windows_.windows().value_or(std::vector<wayland::Window>())) {
        applications.push_back({window.processIdentifier, identifierOf(window)});
    }
    return applications;
}

/// Absent for a window that has neither a class nor a matching desktop file.
std::optional<std::string> WaylandApplications::identifierOf(const wayland::Window &window) {
    if (window.processIdentifier == ownProcess_) {
        return ownBundleIdentifier();
    }
    if (const auto &identifier = entries_.identifierFor(window.instanceName, window.className)) {
        return identifier;
    }
    return window.className.empty() ? std::nullopt : std::optional(window.className);
}

} // namespace corvane::linux
