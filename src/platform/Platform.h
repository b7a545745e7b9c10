#pragma once

namespace corvane::platform {

class Accessibility;
class Alerts;
class Application;
class Applications;
class CommandEndpoint;
class ContinuousClock;
class FileSystem;
class HotKeys;
class Localisation;
class LoginItem;
class MainQueue;
class MouseEvents;
class OverlayWindows;
class Screens;
class SettingsWindows;
class StatusBar;
class UserSession;
class WindowList;
class Workspace;

/// Access to every facility of the system that the program runs on. The native program builds one,
/// hands it to `CorvaneApp` and keeps it until after the app is gone. Each facility says its own
/// thread.
///
/// To add a facility: an abstract class in this folder (thread, coordinate space, units, ordering
/// and failure in its comments, no default bodies), an accessor here, an implementation in each
/// back end and in the recording back end of the tests, and its contract in tests/contract.
class Platform {
  public:
    virtual ~Platform() = default;

    virtual Accessibility &accessibility() = 0;
    virtual Alerts &alerts() = 0;
    virtual Application &application() = 0;
    virtual Applications &applications() = 0;
    virtual ContinuousClock &clock() = 0;
    virtual CommandEndpoint &commandEndpoint() = 0;
    virtual FileSystem &fileSystem() = 0;
    virtual HotKeys &hotKeys() = 0;
    virtual Localisation &localisation() = 0;
    virtual LoginItem &loginItem() = 0;
    virtual MainQueue &mainQueue() = 0;
    virtual MouseEvents &mouseEvents() = 0;
    virtual OverlayWindows &overlayWindows() = 0;
    virtual Screens &screens() = 0;
    virtual SettingsWindows &settingsWindows() = 0;
    virtual StatusBar &statusBar() = 0;
    virtual UserSession &userSession() = 0;
    virtual WindowList &windowList() = 0;
    virtual Workspace &workspace() = 0;
};

} // namespace corvane::platform
