#include "EventLoop.h"
#include "SettingsWindowTest.h"
#include "SpokenText.h"

#include <QAbstractButton>
#include <QLineEdit>
#include <QMenu>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <X11/keysym.h>

#include <algorithm>
#include <array>
#include <set>

namespace corvane::contract {

using namespace Qt::StringLiterals;

namespace {

class ProfilesTabOnScreenTest : public SettingsWindowTest {
  protected:
    void addProfile(const std::string &name) {
        profiles.push_back(Profile::fromConfig(name, config));
    }
    QLineEdit &nameField() const { return named<QLineEdit>(u"Profile name"_s); }
    QAbstractButton &saveButton() const { return named<QAbstractButton>(u"Save"_s); }
};

TEST_F(ProfilesTabOnScreenTest, SaysWhatItShowsWithoutProfiles) {
    open("profiles");
    EXPECT_EQ(spoken(), lines("label 'No profiles'\n"
                              "label 'Save your current configuration as a profile to quickly "
                              "switch between setups.'\n"
                              "label 'Save current config'\n"
                              "text 'Profile name' = ''\n"
                              "push button 'Save' disabled"));
}

TEST_F(ProfilesTabOnScreenTest, SaysWhatItShowsWithProfiles) {
    addProfile("A & B_c");
    addProfile("Two");
    open("profiles");
    EXPECT_EQ(spoken(), lines("label 'Profiles'\n"
                              "panel 'A & B_c'\n"
                              "label 'A & B_c'\n"
                              "label 'Active'\n"
                              "label 'Free Cursor · 1/s'\n"
                              "push button 'Load'\n"
                              "button menu 'More'\n"
                              "panel 'Two'\n"
                              "label 'Two'\n"
                              "label 'Free Cursor · 1/s'\n"
                              "push button 'Load'\n"
                              "button menu 'More'\n"
                              "label 'Save current config'\n"
                              "text 'Profile name' = ''\n"
                              "push button 'Save' disabled"));
}

TEST_F(ProfilesTabOnScreenTest, SavesUnderTheNameThatIsTyped) {
    open("profiles");
    focus(nameField());
    strike(XK_space);
    strike(XK_space);
    EXPECT_FALSE(saveButton().isEnabled());
    type("fish");
    EXPECT_TRUE(saveButton().isEnabled());
    EXPECT_TRUE(nameField().hasFocus());
    strike(XK_Tab);
    EXPECT_TRUE(saveButton().hasFocus());
    strike(XK_space, [this] { return !savedProfiles.empty(); });
    EXPECT_EQ(savedProfiles, std::vector<std::string>{"fish"});
    EXPECT_EQ(nameField().text(), QString());
    EXPECT_FALSE(saveButton().isEnabled());
}

TEST_F(ProfilesTabOnScreenTest, PressesTheButtonWithTheFocusWithReturn) {
    addProfile("One");
    open("profiles");
    focus(nameField());
    strike(XK_Return);
    focus(named(u"Load"_s));
    strike(XK_Return, [this] { return !loadedProfiles.empty(); });
    EXPECT_EQ(loadedProfiles, std::vector<std::string>{"One"});
    EXPECT_TRUE(savedProfiles.empty());
}

TEST_F(ProfilesTabOnScreenTest, DeletesFromTheMenuAndKeepsTheOtherRows) {
    addProfile("One");
    addProfile("Two");
    open("profiles");
    const Uuid first = profiles.front().id;
    focus(named(u"More"_s));
    strike(XK_space, [] { return QApplication::activePopupWidget() != nullptr; });
    const auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    ASSERT_EQ(menu->actions().size(), 3);
    EXPECT_EQ(menu->actions().at(0)->text(), u"Rename..."_s);
    EXPECT_TRUE(menu->actions().at(1)->isSeparator());
    EXPECT_EQ(menu->actions().at(2)->text(), u"Delete"_s);
    strike(XK_Up);
    strike(XK_Return, [this] { return !deletedProfiles.empty(); });
    EXPECT_EQ(deletedProfiles, std::vector{first});
    EXPECT_TRUE(turnUntil([this] { return !isSpoken("panel 'One'"); }));
    EXPECT_EQ(spoken().at(1), "panel 'Two'");
}

TEST_F(ProfilesTabOnScreenTest, StaysUsableWithVeryManyOddProfiles) {
    const std::vector<std::string> odd = {std::string(10000, 'W'),
                                          "\U0001F600\U0001F3FD",
                                          "\u0645\u0631\u062D\u0628\u0627",
                                          "a\nb\r\nc",
                                          "_&_&&",
                                          " ",
                                          "\u202Eevil"};
    for (std::size_t index = 0; index < 500; ++index) {
        addProfile(odd[index % odd.size()]);
    }
    open("profiles");
    const QRect available = screenWindow().screen()->availableGeometry();
    EXPECT_EQ(screenWindow().width(), 540);
    EXPECT_LE(screenWindow().height(), available.height());
    auto &area = *screenWindow().findChild<QScrollArea *>();
    EXPECT_EQ(area.horizontalScrollBar()->maximum(), 0);
    EXPECT_GT(area.verticalScrollBar()->maximum(), 10000);
    EXPECT_LE(area.widget()->width(), area.viewport()->width());

    const auto isSeen = [&area] {
        const QWidget *widget = QApplication::focusWidget();
        return area.viewport()->rect().contains(
            QRect(widget->mapTo(area.viewport(), QPoint()), widget->size()));
    };
    focus(nameField());
    type("z");
    EXPECT_EQ(nameField().text(), u"z"_s);
    strike(XK_Tab);
    EXPECT_TRUE(saveButton().hasFocus());
    EXPECT_TRUE(turnUntil(isSeen));
}

/// Counts the widgets that are drawn, laid out or made.
class WidgetWatch : public QObject {
  public:
    WidgetWatch() { qApp->installEventFilter(this); }

    std::size_t count() const { return busy_.size(); }

  protected:
    bool eventFilter(QObject *watched, QEvent *event) override {
        constexpr std::array work = {QEvent::Paint,      QEvent::Resize,        QEvent::Move,
                                     QEvent::ChildAdded, QEvent::LayoutRequest, QEvent::Polish};
        if (watched->isWidgetType() && std::ranges::count(work, event->type()) > 0) {
            busy_.insert(watched);
        }
        return QObject::eventFilter(watched, event);
    }

  private:
    std::set<const QObject *> busy_;
};

TEST_F(ProfilesTabOnScreenTest, ALetterInTheNameLeavesVeryManyProfilesAlone) {
    while (profiles.size() < 500) {
        addProfile("Profile");
    }
    open("profiles");
    focus(nameField());
    type("zz");
    const auto before = screenWindow().findChildren<QWidget *>();
    const WidgetWatch watch;
    type("z");
    EXPECT_EQ(nameField().text(), u"zzz"_s);
    EXPECT_EQ(screenWindow().findChildren<QWidget *>(), before);
    EXPECT_TRUE(turnUntil([&watch] { return watch.count() > 0; }));
    // Even where all that is seen was still to be drawn.
    EXPECT_LT(watch.count(), profiles.size() / 2);
}

TEST_F(ProfilesTabOnScreenTest, KeepsTheKeyboardNearWhatIsGone) {
    addProfile("One");
    addProfile("Two");
    open("profiles");
    const auto focused = [] { return QApplication::focusWidget()->accessibleName(); };
    const auto deleteFirst = [this] {
        const std::size_t left = profiles.size() - 1;
        focus(named(u"More"_s));
        strike(XK_space, [] { return QApplication::activePopupWidget() != nullptr; });
        strike(XK_Up);
        strike(XK_Return, [&] { return profiles.size() == left; });
    };
    deleteFirst();
    EXPECT_EQ(focused(), u"Load"_s);
    EXPECT_TRUE(named(u"Load"_s).hasFocus());
    deleteFirst();
    EXPECT_EQ(focused(), u"Profile name"_s);
    type("fish");
    strike(XK_Tab);
    EXPECT_EQ(focused(), u"Save"_s);
    strike(XK_space, [this] { return !savedProfiles.empty(); });
    EXPECT_EQ(focused(), u"Profile name"_s);
}

TEST_F(ProfilesTabOnScreenTest, StaysOnTheScreenWhenItGrows) {
    for (int index = 0; index < 30; ++index) {
        addProfile("Profile");
    }
    open();
    named<QAbstractButton>(u"Profiles"_s).click();
    const QRect available = screenWindow().screen()->availableGeometry();
    EXPECT_GT(screenWindow().height(), available.height() / 2);
    EXPECT_TRUE(turnUntil([&] { return available.contains(screenWindow().frameGeometry()); }));
}

} // namespace

} // namespace corvane::contract
