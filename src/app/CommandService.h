#pragma once

#include "app/Command.h"
#include "presentation/Menu.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace corvane {

namespace platform {
class MainQueue;
class UserSession;
} // namespace platform
class AppDelegate;
class AppState;

/// Carries out the commands of scripts and key bindings, and words the answers. What the menu shows
/// disabled is refused. Main thread.
class CommandService : public std::enable_shared_from_this<CommandService> {
  public:
    /// All outlive the service.
    CommandService(AppDelegate &delegate, const AppState &appState,
                   platform::UserSession &userSession, platform::MainQueue &mainQueue);

    /// Answers once: when what was asked for has happened, in a later turn of the main queue at the
    /// latest; `quit` by `sayGoodbye`.
    void obey(const CommandRequest &request, const CommandReply &reply);

    /// Answers those who asked the program to end.
    void sayGoodbye();

  private:
    void perform(const Command &command, const CommandReply &reply);
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

    /// Why the menu does not offer the command now; nothing where it does, and for a command that
    /// it does not show.
    std::optional<std::string> refusal(const MenuCommand &command) const;

    AppDelegate &delegate_;
    const AppState &appState_;
    platform::UserSession &userSession_;
    platform::MainQueue &mainQueue_;
    std::vector<CommandReply> awaitingEnd_;
};

} // namespace corvane
