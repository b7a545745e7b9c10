#include "SettingsWindowTest.h"

#include "EventLoop.h"
#include "SpokenText.h"
#include "ui/AboutTab.h"

#include <QKeyEvent>
#include <X11/keysym.h>

#include <algorithm>
#include <sstream>

namespace corvane::contract {

namespace {

/// Notices when a key has been released in this process.
class ReleaseWatch : public QObject {
  public:
    ReleaseWatch() { qApp->installEventFilter(this); }

    bool isReleased() const { return isReleased_; }

  protected:
    bool eventFilter(QObject *watched, QEvent *event) override {
        isReleased_ = isReleased_ || event->type() == QEvent::KeyRelease;
        return QObject::eventFilter(watched, event);
    }

  private:
    bool isReleased_ = false;
};

} // namespace

std::vector<std::string> lines(const std::string &text) {
    std::vector<std::string> result;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        result.push_back(line);
    }
    return result;
}

std::shared_ptr<SettingsTab> SettingsWindowTest::makeTab(const std::string &identifier) {
    if (identifier == "general") {
        auto general = std::make_shared<GeneralTab>(config, platform.loginItem(), platform.alerts(),
                                                    platform.applications(), resolver);
        general->onSave = {[this](const CorvaneConfig &edited) {
            saved.push_back(edited);
            if (afterSaving) {
                afterSaving();
            }
        }};
        tab = general;
    } else if (identifier == "profiles") {
        auto list = std::make_shared<ProfilesTab>(
            profiles, profiles.empty() ? std::nullopt : std::optional(profiles.front().id),
            platform.alerts(), platform.applications());
        list->onLoad = {[this](const Profile &profile) { loadedProfiles.push_back(profile.name); }};
        list->onDelete = {[this](const Uuid &id) {
            deletedProfiles.push_back(id);
            std::erase_if(profiles, [&id](const Profile &each) { return each.id == id; });
            window->showTab("profiles");
        }};
        list->onSaveCurrent = {[this](const std::string &name) { savedProfiles.push_back(name); }};
        tab = list;
    } else {
        tab = std::make_shared<AboutTab>(platform.application(), platform.workspace());
    }
    return tab;
}

void SettingsWindowTest::open(const std::string &tabIdentifier) {
    window = std::make_unique<ConfigWindow>(
        windows, [this](const std::string &identifier) { return makeTab(identifier); },
        [this](const std::string &identifier) {
            window->setSelectedItemIdentifier(identifier);
            window->showTab(identifier);
        });
    window->setSelectedItemIdentifier(tabIdentifier);
    window->showTab(tabIdentifier);
    window->center();
    window->makeKeyAndOrderFront();
    ASSERT_TRUE(turnUntil([] { return QApplication::activeWindow() != nullptr; }));
}

QWidget &SettingsWindowTest::screenWindow() const {
    for (QWidget *widget : QApplication::topLevelWidgets()) {
        if (widget->isVisible() && widget->windowType() == Qt::Window) {
            return *widget;
        }
    }
    throw std::logic_error("no window on the screen");
}

std::vector<std::string> SettingsWindowTest::spoken() const {
    auto lines = spokenText(screenWindow());
    lines.erase(lines.begin(), lines.begin() + 3);
    return lines;
}

bool SettingsWindowTest::isSpoken(const std::string &line) const {
    return std::ranges::count(spoken(), line) == 1;
}

void SettingsWindowTest::focus(QWidget &widget) const {
    widget.setFocus(Qt::MouseFocusReason);
    ASSERT_TRUE(widget.hasFocus());
}

void SettingsWindowTest::strike(xcb_keysym_t key, const std::function<bool()> &effect) const {
    keyboard_.tap(keyboard_.keyOf(key));
    ASSERT_TRUE(turnUntil(effect));
}

void SettingsWindowTest::strike(xcb_keysym_t key) const {
    const ReleaseWatch watch;
    strike(key, [&watch] { return watch.isReleased(); });
}

void SettingsWindowTest::strikeWithShift(xcb_keysym_t key,
                                         const std::function<bool()> &effect) const {
    keyboard_.press(keyboard_.keyOf(XK_Shift_L));
    strike(key, effect);
    keyboard_.release(keyboard_.keyOf(XK_Shift_L));
}

void SettingsWindowTest::type(const std::string &text) const {
    for (const char character : text) {
        strike(static_cast<xcb_keysym_t>(character));
    }
}

} // namespace corvane::contract
