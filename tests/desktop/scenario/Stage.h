#pragma once

#include "actors/Pointer.h"
#include "servers/Desktop.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace corvane::desktop {

/// The left button going down or up in the other program's window.
struct ButtonChange {
    bool isPress = false;
    /// Of the desktop's clock, when it happened.
    std::int64_t milliseconds = 0;
};

/// A desktop on which the scenario is played, with a window of another program ("Target", 400 by
/// 300 pixels) and the user's hands.
class Stage {
  public:
    /// For the result of a step, and what it was.
    using Expect = std::function<void(bool isSo, const std::string &what)>;

    /// The desktop of that name: "x11" or a Wayland compositor's. Null for another name.
    static std::unique_ptr<Stage> make(const std::string &desktop);

    virtual ~Stage() = default;

    virtual const Desktop &desktop() const = 0;
    /// What there is to see, in a sentence.
    virtual std::string description() const = 0;
    /// Whether every program of the desktop still runs.
    virtual bool isWhole() const = 0;

    /// To a position in the window.
    virtual void movePointer(Position position) = 0;
    virtual void pressHotKey() = 0;
    virtual bool isButtonDown() const = 0;
    /// Drags the window to another place.
    virtual void moveWindow() = 0;
    virtual std::vector<ButtonChange> buttonChanges() const = 0;

    /// Opens Corvane's menu and closes it again, where there is a panel to show it.
    virtual void visitMenu(const Expect &expect, const std::function<void()> &takePicture) = 0;
    /// False where there is no picture.
    virtual bool savePicture(const std::filesystem::path &file) const = 0;
};

} // namespace corvane::desktop
