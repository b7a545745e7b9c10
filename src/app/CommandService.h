#pragma once

#include "app/Command.h"
#include "presentation/ActionID.h"
#include "support/WeakCallbacks.h"

#include <chrono>
#include <optional>
#include <string>
#include <vector>

namespace corvane {

namespace platform {
class ContinuousClock;
class MainQueue;
} // namespace platform
class AppDelegate;
class AppState;

/// Carries out the commands of scripts and key bindings, and words the answers. What cannot be
/// carried out now is refused with the reason. Main thread.
class CommandService {
  public:
    /// All outlive the service.
    CommandService(AppDelegate &delegate, const AppState &appState, platform::MainQueue &mainQueue,
                   const platform::ContinuousClock &clock);

    /// Answers once: when the command has been carried out, in a later turn of the main queue at
    /// the latest; `quit` by `sayGoodbye`.
    void handle(const CommandRequest &request, const CommandReply &reply);

    /// Answers those who asked the program to end.
    void sayGoodbye();

  private:
    void perform(const Command &command, const CommandReply &reply);
    void toggle(const Command &command, const CommandReply &reply);
    void start(const CommandReply &reply);
    void stop(const CommandReply &reply);
    void selectZone(const CommandReply &reply);
    void quit(const CommandReply &reply);
    CommandAnswer showSettings();
    CommandAnswer loadProfile(const std::string &nameOrId);

    /// Answers after everything that is queued by now.
    void replyLater(const CommandReply &reply, CommandAnswer (CommandService::*answer)() const);
    CommandAnswer outcomeOfStart() const;
    CommandAnswer outcomeOfStop() const;
    CommandAnswer outcomeOfSelection() const;

    /// Whether a held key has sent the command anew.
    bool isRepeatedKey();

    /// Nothing where the action can be carried out.
    std::optional<CommandAnswer> refusalOf(ActionID action) const;

    AppDelegate &delegate_;
    const AppState &appState_;
    platform::MainQueue &mainQueue_;
    const platform::ContinuousClock &clock_;
    std::optional<std::chrono::nanoseconds> lastKey_;
    std::vector<CommandReply> awaitingEnd_;
    const WeakCallbacks<CommandService> weakly_{*this};
};

} // namespace corvane
