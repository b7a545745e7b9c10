#pragma once

#include "platform/Application.h"
#include "support/recorder/RecordingAlerts.h"

namespace corvane::testing {

/// A program without an event loop.
class RecordingApplication : public platform::Application {
  public:
    void terminate() override {
        if (refusesEndUnder == nullptr || !refusesEndUnder->isShown()) {
            ++terminations;
        }
    }
    void activateIgnoringOtherApps() override { ++activations; }
    std::optional<std::string> shortVersion() const override { return version; }
    std::optional<std::string> buildVersion() const override { return build; }
    std::optional<std::filesystem::path> iconFile() const override { return icon; }
    std::filesystem::path homeDirectory() const override { return home; }

    int terminations = 0;
    /// While one of these alerts is open, the program cannot be ended; none for always.
    const RecordingAlerts *refusesEndUnder = nullptr;
    int activations = 0;
    std::optional<std::string> version = "2.1";
    std::optional<std::string> build = "37";
    std::optional<std::filesystem::path> icon = "/icons/corvane.png";
    std::filesystem::path home = "/home/user";
};

} // namespace corvane::testing
