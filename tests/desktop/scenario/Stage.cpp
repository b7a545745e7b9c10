#include "Stage.h"

#include "WaitUntil.h"
#include "actors/ClickClient.h"
#include "actors/Keyboard.h"
#include "actors/WaylandClient.h"
#include "probes/Screenshot.h"
#include "probes/WindowTree.h"
#include "servers/Compositors.h"
#include "servers/VirtualDesktop.h"

#include <X11/keysym.h>

#include <algorithm>
#include <utility>

namespace corvane::desktop {

namespace {

constexpr Position window{440, 230};
constexpr Position movedWindow{170, 110};

Position operator+(Position one, Position other) { return {one.x + other.x, one.y + other.y}; }

class X11Stage : public Stage {
  public:
    X11Stage() : window_(client_.open({.x = window.x, .y = window.y})) {}

    const Desktop &desktop() const override { return desktop_; }
    std::string description() const override {
        return "on display " + desktop_.display() +
               ": window manager, compositor, panel, and a window of another program";
    }
    bool isWhole() const override { return desktop_.isWhole(); }

    void movePointer(Position position) override {
        pointer_.moveTo(client_.position(window_) + position);
    }
    void pressHotKey() override { keyboard_.pressHotKey(); }
    bool isButtonDown() const override { return pointer_.isLeftButtonDown(); }

    void moveWindow() override {
        constexpr int steps = 30;
        const Position from = client_.position(window_);
        for (int step = 1; step <= steps; ++step) {
            const auto between = [step](int start, int end) {
                return start + (end - start) * step / steps;
            };
            client_.move(window_, {between(from.x, movedWindow.x), between(from.y, movedWindow.y)});
        }
    }

    std::vector<ButtonChange> buttonChanges() const override {
        std::vector<ButtonChange> changes;
        for (const ButtonEvent &event : client_.events()) {
            if (event.button == 1) {
                changes.push_back({event.isPress, event.milliseconds});
            }
        }
        return changes;
    }

    void visitMenu(const Expect &expect, const std::function<void()> &takePicture) override {
        std::vector<SeenWindow> windows;
        const bool hasIcon = waitUntil([&] {
            windows = corvaneWindows(desktop_.connection());
            return !windows.empty();
        });
        expect(hasIcon, "the panel shows the icon");
        if (!hasIcon) {
            return;
        }
        pointer_.moveTo(windows.back().middle());
        pointer_.click();
        expect(waitUntil([this] { return hasOpenMenu(); }), "a click on the icon opens the menu");
        takePicture();
        keyboard_.tap(keyboard_.keyOf(XK_Escape));
        expect(waitUntil([this] { return !hasOpenMenu(); }), "Escape closes the menu");
    }

    bool savePicture(const std::filesystem::path &file) const override {
        return Screenshot(desktop_.connection()).savePng(file);
    }

  private:
    bool hasOpenMenu() const {
        constexpr int leastHeight = 100;
        return std::ranges::any_of(corvaneWindows(desktop_.connection()),
                                   [](const SeenWindow &each) {
                                       return each.isOverride && each.area.height > leastHeight;
                                   });
    }

    VirtualDesktop desktop_{{.hasCompositor = true, .hasPanel = true}};
    ClickClient client_{desktop_};
    Pointer pointer_{desktop_.connection()};
    Keyboard keyboard_{desktop_.connection()};
    int window_;
};

class WaylandStage : public Stage {
  public:
    explicit WaylandStage(std::string compositor)
        : compositor_(std::move(compositor)),
          ownDesktop_(makeWaylandDesktop(compositor_)) {
        client_.open({.position = window});
    }

    const Desktop &desktop() const override { return desktop_; }
    std::string description() const override {
        return "under " + compositor_ + ": two monitors, and a window of another program";
    }
    bool isWhole() const override { return desktop_.isWhole(); }

    void movePointer(Position position) override { client_.moveTo(place_ + position); }
    void pressHotKey() override { desktop_.pressHotKey(); }
    bool isButtonDown() const override { return client_.pressCount() > client_.releaseCount(); }

    void moveWindow() override {
        place_ = movedWindow;
        desktop_.place("Target", place_);
    }

    std::vector<ButtonChange> buttonChanges() const override {
        std::vector<ButtonChange> changes;
        for (const PointerEvent &event : client_.events()) {
            if (event.kind == PointerEvent::Kind::press ||
                event.kind == PointerEvent::Kind::release) {
                changes.push_back({event.kind == PointerEvent::Kind::press, event.milliseconds});
            }
        }
        return changes;
    }

    void visitMenu(const Expect & /*expect*/,
                   const std::function<void()> & /*takePicture*/) override {}

    bool savePicture(const std::filesystem::path &file) const override {
        desktop_.saveScreenshot(file);
        return std::filesystem::exists(file);
    }

  private:
    const std::string compositor_;
    const std::unique_ptr<WaylandDesktop> ownDesktop_;
    WaylandDesktop &desktop_ = *ownDesktop_;
    WaylandClient client_{desktop_};
    Position place_ = window;
};

} // namespace

std::unique_ptr<Stage> Stage::make(const std::string &desktop) {
    if (desktop == "x11") {
        return std::make_unique<X11Stage>();
    }
    const bool isKnown = std::ranges::find(compositors, desktop) != compositors.end();
    return isKnown ? std::make_unique<WaylandStage>(desktop) : nullptr;
}

} // namespace corvane::desktop
