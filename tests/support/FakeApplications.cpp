#include "support/FakeApplications.h"

namespace corvane::testing {

std::optional<platform::RunningApplication>
FakeApplications::running(std::int32_t processIdentifier) {
    for (const platform::RunningApplication &application : runningApplications) {
        if (application.processIdentifier == processIdentifier) {
            return application;
        }
    }
    return std::nullopt;
}

std::vector<platform::RunningApplication>
FakeApplications::running(const std::string &bundleIdentifier) {
    std::vector<platform::RunningApplication> result;
    for (const platform::RunningApplication &application : runningApplications) {
        if (application.bundleIdentifier == bundleIdentifier) {
            result.push_back(application);
        }
    }
    return result;
}

std::optional<std::string> FakeApplications::displayName(const std::string &bundleIdentifier) {
    const auto found = names.find(bundleIdentifier);
    return found == names.end() ? std::nullopt : std::optional(found->second);
}

} // namespace corvane::testing
