#include "platform/linux/Applications.h"

#include <algorithm>
#include <set>
#include <utility>

#include <unistd.h>

namespace corvane::x11 {

LinuxApplications::LinuxApplications(ClientWindows &windows, DesktopEntries entries)
    : windows_(windows),
      entries_(std::move(entries)),
      ownProcess_(getpid()) {}

std::optional<platform::RunningApplication>
LinuxApplications::running(std::int32_t processIdentifier) {
    const auto owners = windows_.owners();
    const auto owner = std::ranges::find(*owners, std::optional(processIdentifier),
                                         &WindowOwner::processIdentifier);
    if (owner == owners->end()) {
        return std::nullopt;
    }
    return platform::RunningApplication{processIdentifier, identifierOf(*owner)};
}

std::vector<platform::RunningApplication>
LinuxApplications::running(const std::string &bundleIdentifier) {
    auto owners = windows_.owners();
    if (owners != answeredFrom_ || bundleIdentifier != answered_) {
        answer_ = instances(*owners, bundleIdentifier);
        answered_ = bundleIdentifier;
        answeredFrom_ = std::move(owners);
    }
    return answer_;
}

std::vector<platform::RunningApplication>
LinuxApplications::instances(const ClientWindows::Owners &owners,
                             const std::string &bundleIdentifier) {
    std::set<std::int32_t> processes;
    for (const WindowOwner &owner : owners) {
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

std::optional<std::string> LinuxApplications::displayName(const std::string &bundleIdentifier) {
    return entries_.nameOf(bundleIdentifier);
}

/// Nothing for a window without a class and without a desktop file that fits.
std::optional<std::string> LinuxApplications::identifierOf(const WindowOwner &owner) {
    if (owner.processIdentifier == ownProcess_) {
        return ownBundleIdentifier();
    }
    const auto &identifier = entries_.identifierFor(owner.instanceName, owner.className);
    if (identifier) {
        return identifier;
    }
    return owner.className.empty() ? std::nullopt : std::optional(owner.className);
}

} // namespace corvane::x11
