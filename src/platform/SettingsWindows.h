#pragma once

#include "presentation/SettingsWindow.h"
#include "presentation/View.h"

#include <functional>
#include <memory>
#include <string>

namespace corvane::platform {

/// A settings window. Main thread. Created off screen and without content; destroying it takes it
/// off the screen, also from within one of the handlers of its content or of its own events.
class NativeSettingsWindow {
  public:
    virtual ~NativeSettingsWindow() = default;

    /// Whether it is on the screen, be it behind other windows.
    virtual bool isVisible() const = 0;

    /// Shows it above the other windows and gives it the keyboard.
    virtual void makeKeyAndOrderFront() = 0;
    virtual void orderOut() = 0;

    /// Moves it to the middle of the screen.
    virtual void center() = 0;

    virtual void setTitle(const std::string &title) = 0;

    /// Reports nothing. An identifier without an item selects none.
    virtual void setSelectedToolbarItem(const std::string &identifier) = 0;

    /// Shows `content` afresh: what the user was typing is dropped.
    virtual void setContent(const View &content) = 0;

    /// Shows the next state of the present content: controls that stay keep the focus, the cursor,
    /// the selection and the text being typed.
    virtual void updateContent(const View &content) = 0;
};

/// Makes settings windows. Main thread.
class SettingsWindows {
  public:
    virtual ~SettingsWindows() = default;

    /// Never null. `toolbarItemSelected` receives the identifier of each item the user chooses; the
    /// selection itself is left to the callee. The user's closing the window only hides it.
    virtual std::unique_ptr<NativeSettingsWindow>
    create(const SettingsWindow &window,
           std::function<void(const std::string &identifier)> toolbarItemSelected) = 0;
};

} // namespace corvane::platform
