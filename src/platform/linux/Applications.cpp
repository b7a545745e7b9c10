#include "platform/linux/Applications.h"

#include <algorithm>
#include <utility>

#include <unistd.h>

namespace corvane::linux {

Applications::Applications(WindowOwnerSource source, freedesktop::DesktopEntries entries)
    : source_(std::move(source)),
      entries_(std::move(entries)),
      ownProcess_(getpid()) {}

std::optional<platform::RunningApplication> Applications::running(std::int32_t processIdentifier) {
    const auto owners = source_.listed();
    const auto owner = std::ranges::find(*owners, std::optional(processIdentifier),
                                         &WindowOwner::processIdentifier);
    if (owner == owners->end()) {
        return std::nullopt;
    }
    return platform::RunningApplication{processIdentifier, identifierOf(*owner)};
}

/// Most applications are found among the listed windows; hidden ones are read for the others only.
std::vector<platform::RunningApplication>
Applications::running(const std::string &bundleIdentifier) {
    catchUp();
    if (!processes_.contains(bundleIdentifier) && !std::exchange(hasHidden_, true)) {
        add(source_.all());
    }
    const auto found = processes_.find(bundleIdentifier);
    if (found == processes_.end()) {
        return {};
    }
    return {{*found->second.begin(), bundleIdentifier}};
}

std::set<std::int32_t> Applications::processesWith(std::int32_t processIdentifier) {
    catchUp();
    std::set all{processIdentifier};
    for (const auto &[identifier, processes] : processes_) {
        if (processes.contains(processIdentifier)) {
            all.insert(processes.begin(), processes.end());
        }
    }
    return all;
}

void Applications::catchUp() {
    auto owners = source_.listed();
    if (owners == owners_) {
        return;
    }
    owners_ = std::move(owners);
    processes_.clear();
    hasHidden_ = false;
    add(*owners_);
}

void Applications::add(const WindowOwners &owners) {
    for (const WindowOwner &owner : owners) {
        const auto identifier = owner.processIdentifier ? identifierOf(owner) : std::nullopt;
        if (identifier) {
            processes_[*identifier].insert(*owner.processIdentifier);
        }
    }
}

std::optional<std::string> Applications::displayName(const std::string &bundleIdentifier) {
    return entries_.nameOf(bundleIdentifier);
}

/// Absent for a window that has neither a class nor a matching desktop file.
std::optional<std::string> Applications::identifierOf(const WindowOwner &owner) {
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
