#pragma once

#include "ChildProcess.h"
#include "TemporaryFolder.h"

#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace corvane::desktop {

/// What every desktop of the tests has: a home directory, a message bus of its own and an
/// environment in which programs are started.
class Desktop {
  public:
    Desktop(const Desktop &) = delete;
    Desktop &operator=(const Desktop &) = delete;

    /// Where programs on this desktop have their home.
    const std::filesystem::path &home() const { return home_; }

    /// Private to this desktop; for whatever a test wants to keep in files.
    const std::filesystem::path &folder() const { return folder_.path(); }

    /// What a program is started with to be on this desktop.
    const Environment &environment() const { return environment_; }

    /// Makes the test's own process a program on this desktop.
    void adoptEnvironment() const;

    /// Starts a program on this desktop.
    std::unique_ptr<ChildProcess> start(std::vector<std::string> arguments,
                                        const PrivateMounts *mounts = nullptr) const;

    /// Runs a program on this desktop to its end; throws unless it succeeds. What it printed.
    std::string run(std::vector<std::string> arguments) const;

    /// Starts a session bus where the last one was, and waits until it takes connections.
    void startMessageBus();
    /// Kills it.
    void stopMessageBus();

  protected:
    Desktop();
    ~Desktop() = default;

    std::filesystem::path makeFolder(const std::string &name) const {
        return folder_.makeFolder(name);
    }
    const std::filesystem::path &output() const { return output_; }
    void set(const std::string &name, const std::string &value) { environment_[name] = value; }
    void unset(const std::string &name) { environment_.erase(name); }
    bool hasMessageBus() const { return !messageBus_ || messageBus_->isRunning(); }

  private:
    TemporaryFolder folder_;
    std::filesystem::path home_;
    std::filesystem::path output_;
    Environment environment_;
    std::unique_ptr<ChildProcess> messageBus_;
};

/// Waits for what a program that has just been started must bring about; throws when it does not.
template <typename Condition>
void require(const std::string &what, ChildProcess &program, Condition condition) {
    bool isReady = false;
    waitUntil([&] {
        isReady = condition();
        return isReady || !program.isRunning();
    });
    if (!isReady) {
        throw std::runtime_error(what + " did not start: " + program.standardError());
    }
}

} // namespace corvane::desktop
