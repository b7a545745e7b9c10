#include "platform/linux/Applications.h"

#include <algorithm>
#include <set>
#include <utility>

#include <unistd.h>

namespace corvane::linux {

Applications::Applications(x11::ClientWindows &windows, freedesktop::DesktopEntries entries)
    : windows_(windows),
      entries_(std::move(entries)),
      ownProcess_(getpid()) {}

std::optional<platform::RunningApplication> Applications::running(std::int32_t processIdentifier) {
    const auto owners = windows_.owners();
    const auto owner = std::ranges::find(*owners, std::optional(processIdentifier),
                                         &x11::WindowOwner::processIdentifier);
    if (owner == owners->end()) {
        return std::nullopt;
    }
    return platform::RunningApplication{processIdentifier, identifierOf(*owner)};
}

std::vector<platform::RunningApplication>
Applications::running(const std::string &bundleIdentifier) {
    auto owners = windows_.owners();
    if (owners != answeredFrom_ || bundleIdentifier != answered_) {
        answer_ = instances(*owners, bundleIdentifier);
        answered_ = bundleIdentifier;
        answeredFrom_ = std::move(owners);
    }
    return answer_;
}

std::vector<platform::RunningApplication>
Applications::instances(const x11::ClientWindows::Owners &owners,
                        const std::string &bundleIdentifier) {
    std::set<std::int32_t> processes;
    for (const x11::WindowOwner &owner : owners) {
        const auto &process = owner.processIdentifier;
        if (process && !processes.contains(*process) && identifierOf(owner) == bundleIdentifier) {
            processes.insert(*process);
        }
    }
    std::vector<platform::RunningApplication> applications;
    applications.reserve(processes.size());
    for (const std::int32_t process : processes) {
        applications.push_back({process, bundleIdentifier});
    }
    return applications;
}

std::optional<std::string> Applications::displayName(const std::string &bundleIdentifier) {
    return entries_.nameOf(bundleIdentifier);
}

/// Nothing for a window without a class and without a desktop file that fits.
std::optional<std::string> Applications::identifierOf(const x11::WindowOwner &owner) {
    if (owner.processIdentifier == ownProcess_) {
        return ownBundleIdentifier();
    }
    const auto &identifier = entries_.identifierFor(owner.instanceName, owner.className);
    if (identifier) {
        return identifier;
    }
    return owner.className.empty() ? std::nullopt : std::optional(owner.className);
}

} // namespace corvane::linux
