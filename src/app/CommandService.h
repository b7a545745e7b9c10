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

/// Carries out the commands of scripts and key bindings, and words the replies. What cannot be
/// carried out now is refused with the reason. Main thread.
class CommandService {
  public:
    /// All outlive the service.
    CommandService(AppDelegate &delegate, const AppState &appState, platform::MainQueue &mainQueue,
                   const platform::ContinuousClock &clock);

    /// Replies once: when the command has been carried out, in a later turn of the main queue at
    /// the latest; `quit` by `replyToQuit`.
    void handle(const CommandRequest &request, const SendReply &sendReply);

    /// Replies to those who requested the end of the program.
    void replyToQuit();

  private:
    void perform(const Command &command, const SendReply &sendReply);
    void toggle(const Command &command, const SendReply &sendReply);
    void start(const SendReply &sendReply);
    void stop(const SendReply &sendReply);
    void selectZone(const SendReply &sendReply);
    void quit(const SendReply &sendReply);
    CommandReply showSettings();
    CommandReply loadProfile(const std::string &nameOrId);

    /// Replies after everything that is queued by now.
    void replyLater(const SendReply &sendReply, CommandReply (CommandService::*reply)() const);
    CommandReply outcomeOfStart() const;
    CommandReply outcomeOfStop() const;
    CommandReply outcomeOfSelection() const;

    /// Whether a held key has sent the command anew.
    bool isRepeatedKey();

    /// Nothing where the action can be carried out.
    std::optional<CommandReply> refusalOf(ActionID action) const;

    AppDelegate &delegate_;
    const AppState &appState_;
    platform::MainQueue &mainQueue_;
    const platform::ContinuousClock &clock_;
    std::optional<std::chrono::nanoseconds> lastKey_;
    std::vector<SendReply> awaitingEnd_;
    const WeakCallbacks<CommandService> weakly_{*this};
};

} // namespace corvane
