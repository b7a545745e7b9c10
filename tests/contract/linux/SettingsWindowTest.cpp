#include "SettingsWindowTest.h"

#include "EventLoop.h"
#include "SpokenText.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QComboBox>
#include <QEventLoop>
#include <QLineEdit>
#include <QMenu>
#include <QRadioButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTimer>
#include <X11/keysym.h>

#include <algorithm>
#include <sstream>

namespace corvane::contract {

using namespace Qt::StringLiterals;

namespace {

std::vector<std::string> lines(const std::string &text) {
    std::vector<std::string> result;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        result.push_back(line);
    }
    return result;
}

std::vector<std::string> first(std::size_t count, std::vector<std::string> lines) {
    lines.resize(count);
    return lines;
}

class GeneralTabOnScreen : public SettingsWindowTest {
  protected:
    QLineEdit &rate() const { return named<QLineEdit>(u"Rate"_s); }
    QLineEdit &limit() const { return named<QLineEdit>(u"Limit"_s); }
    QWidget &rateStepper() const {
        for (QWidget *widget : screenWindow().findChildren<QWidget *>()) {
            if (widget->accessibleName() == u"Rate" &&
                QAccessible::queryAccessibleInterface(widget)->role() == QAccessible::SpinBox) {
                return *widget;
            }
        }
        throw std::logic_error("no stepper");
    }
    bool saysInterval(const std::string &seconds) const {
        return isSpoken("text '= 1 click every " + seconds + "s'");
    }

    /// Types into an emptied field.
    void retype(QLineEdit &field, const std::string &text) const {
        focus(field);
        field.selectAll();
        type(text);
    }
};

class ProfilesTabOnScreen : public SettingsWindowTest {
  protected:
    void addProfile(const std::string &name) {
        profiles.push_back(Profile::fromConfig(name, config));
    }
    QLineEdit &nameField() const { return named<QLineEdit>(u"Profile name"_s); }
    QAbstractButton &saveButton() const { return named<QAbstractButton>(u"Save"_s); }
};

class AboutTabOnScreen : public SettingsWindowTest {};

TEST_F(GeneralTabOnScreen, saysWhatTheCursorModeShows) {
    open();
    EXPECT_EQ(spokenText(screenWindow()), lines("tab 'General' selected\n"
                                                "tab 'Profiles'\n"
                                                "tab 'About'\n"
                                                "text 'Mode'\n"
                                                "group 'Mode'\n"
                                                "radio button 'Free Cursor' checked\n"
                                                "radio button 'Defined Zone'\n"
                                                "text 'Rate'\n"
                                                "field 'Rate' = '1'\n"
                                                "stepper 'Rate' = 1\n"
                                                "text 'clicks per'\n"
                                                "picker 'second' = 'second'\n"
                                                "text '= 1 click every 1.00s'\n"
                                                "text 'Limit'\n"
                                                "field 'Limit' = '0'\n"
                                                "stepper 'Limit' = 0\n"
                                                "text 'clicks'\n"
                                                "text '(unlimited)'\n"
                                                "check box 'Start at Login'\n"
                                                "button 'OK'"));
}

TEST_F(GeneralTabOnScreen, showsWhatBelongsToAZoneInItsPlace) {
    config.zoneRect = CodableRect{120.4, 80, 300, 200};
    config.windowAnchor = WindowAnchor{"org.example.editor", "Tom & Jerry _", {1, 2, 300, 200}};
    platform.loginItem().enabled = true;
    open();
    const int height = screenWindow().height();
    named<QRadioButton>(u"Defined Zone"_s).click();
    EXPECT_EQ(first(12, spoken()), lines("text 'Mode'\n"
                                         "group 'Mode'\n"
                                         "radio button 'Free Cursor'\n"
                                         "radio button 'Defined Zone' checked\n"
                                         "text 'Zone: 120, 80 — 300×200'\n"
                                         "button 'Define zone...'\n"
                                         "check box 'Relative to a window' checked\n"
                                         "text 'Anchored to org.example.editor'\n"
                                         "text '(Tom & Jerry _)'\n"
                                         "text 'Rate'\n"
                                         "field 'Rate' = '1'\n"
                                         "stepper 'Rate' = 1"));
    EXPECT_TRUE(isSpoken("check box 'Start at Login' checked"));
    EXPECT_TRUE(turnUntil([&] { return screenWindow().height() > height; }));
    named<QRadioButton>(u"Free Cursor"_s).click();
    EXPECT_TRUE(turnUntil([&] { return screenWindow().height() == height; }));
}

TEST_F(GeneralTabOnScreen, isAsWideAsItShouldBeAndCannotBeResized) {
    open();
    const QWidget &widget = screenWindow();
    EXPECT_EQ(widget.width(), 540);
    EXPECT_EQ(widget.minimumSize(), widget.maximumSize());
    const Qt::WindowFlags flags = widget.windowFlags();
    EXPECT_TRUE(flags.testFlag(Qt::WindowCloseButtonHint));
    EXPECT_FALSE(flags.testFlag(Qt::WindowMinimizeButtonHint));
    EXPECT_FALSE(flags.testFlag(Qt::WindowMaximizeButtonHint));
    const QPoint offset =
        widget.frameGeometry().center() - widget.screen()->availableGeometry().center();
    EXPECT_LT(offset.manhattanLength(), 40);
}

TEST_F(GeneralTabOnScreen, takesEachNumberAsItIsTyped) {
    open();
    retype(rate(), "20000");
    EXPECT_EQ(rate().text(), u"20000"_s);
    EXPECT_TRUE(saysInterval("0.00"));
    EXPECT_TRUE(isSpoken("stepper 'Rate' = 20000"));
    retype(limit(), "5");
    EXPECT_FALSE(isSpoken("text '(unlimited)'"));
    retype(rate(), "0");
    EXPECT_TRUE(saysInterval("1.00"));
    EXPECT_EQ(rate().text(), u"0"_s);
}

TEST_F(GeneralTabOnScreen, keepsTheLastNumberWhereTheTextIsNone) {
    open();
    retype(rate(), "12x");
    EXPECT_EQ(rate().text(), u"12x"_s);
    EXPECT_TRUE(saysInterval("0.08"));
    focus(limit());
    EXPECT_EQ(rate().text(), u"12"_s);

    retype(rate(), "9223372036854775807");
    EXPECT_TRUE(isSpoken("stepper 'Rate' = 9223372036854775807"));
    type("0");
    EXPECT_EQ(rate().text(), u"92233720368547758070"_s);
    EXPECT_TRUE(isSpoken("stepper 'Rate' = 9223372036854775807"));
    focus(limit());
    EXPECT_EQ(rate().text(), u"9223372036854775807"_s);

    focus(rate());
    rate().selectAll();
    strike(XK_Delete);
    EXPECT_EQ(rate().text(), QString());
    strike(XK_Return);
    ASSERT_EQ(saved.size(), 1U);
    EXPECT_EQ(saved.front().clickRate, 9223372036854775807);
}

TEST_F(GeneralTabOnScreen, letsTheFieldFollowTheStepper) {
    open();
    retype(rate(), "x");
    focus(rateStepper());
    strike(XK_Up);
    strike(XK_Up);
    EXPECT_EQ(rate().text(), u"3"_s);
    strike(XK_Down);
    strike(XK_Down);
    strike(XK_Down);
    EXPECT_EQ(rate().text(), u"1"_s);
    retype(rate(), "20000");
    focus(rateStepper());
    strike(XK_Down);
    EXPECT_EQ(rate().text(), u"9999"_s);
    strike(XK_Up);
    EXPECT_EQ(rate().text(), u"9999"_s);
}

TEST_F(GeneralTabOnScreen, keepsFocusCursorAndSelectionWhileOtherThingsChange) {
    open();
    retype(limit(), "12345");
    limit().setSelection(1, 3);
    named<QRadioButton>(u"Defined Zone"_s).click();
    EXPECT_TRUE(isSpoken("text 'No zone defined'"));
    EXPECT_TRUE(limit().hasFocus());
    EXPECT_EQ(limit().selectedText(), u"234"_s);
    limit().setCursorPosition(2);
    named<QComboBox>(u"clicks per"_s).setCurrentIndex(2);
    Q_EMIT named<QComboBox>(u"clicks per"_s).activated(2);
    EXPECT_TRUE(saysInterval("3600.00"));
    EXPECT_EQ(limit().cursorPosition(), 2);
    type("9");
    EXPECT_EQ(limit().text(), u"129345"_s);
}

TEST_F(GeneralTabOnScreen, performsOKWithReturnFromAnywhere) {
    config.clickMode = ClickMode::zone;
    open();
    std::size_t expected = 0;
    for (QWidget *widget : screenWindow().findChildren<QWidget *>()) {
        if ((widget->focusPolicy() & Qt::TabFocus) == 0 || !widget->isVisible()) {
            continue;
        }
        focus(*widget);
        ++expected;
        strike(expected % 2 == 0 ? XK_Return : XK_KP_Enter,
               [&] { return saved.size() == expected; });
    }
    // Three tabs, the chosen radio button, a button, a toggle, two fields, two steppers, a picker,
    // a toggle and OK itself.
    EXPECT_EQ(expected, 13U);
    EXPECT_EQ(window->isVisible(), true);
}

TEST_F(GeneralTabOnScreen, survivesItsEndInItsOwnHandler) {
    open();
    afterSaving = [this] { window.reset(); };
    QEventLoop loop;
    QTimer::singleShot(0, &loop, [this] { named<QAbstractButton>(u"OK"_s).click(); });
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, &loop, [&] {
        if (!window) {
            loop.quit();
        }
    });
    watch.start(1);
    loop.exec();
    EXPECT_EQ(saved.size(), 1U);
    EXPECT_TRUE(turnUntil([] { return QApplication::activeWindow() == nullptr; }));
}

TEST_F(GeneralTabOnScreen, goesThroughTheControlsInTheirOrder) {
    config.clickMode = ClickMode::zone;
    config.zoneRect = CodableRect{1, 2, 3, 4};
    open();
    // Changes that make and remove controls must not upset the order.
    named<QRadioButton>(u"Free Cursor"_s).click();
    named<QRadioButton>(u"Defined Zone"_s).click();
    focus(named(u"General"_s));
    std::vector<std::string> visited;
    for (int count = 0; count < 13; ++count) {
        const QWidget *former = QApplication::focusWidget();
        strike(XK_Tab, [former] { return QApplication::focusWidget() != former; });
        visited.push_back(QApplication::focusWidget()->accessibleName().toStdString());
    }
    EXPECT_EQ(visited, lines("Profiles\nAbout\nDefined Zone\nDefine zone...\n"
                             "Relative to a window\nRate\nRate\nclicks per\nLimit\nLimit\n"
                             "Start at Login\nOK\nGeneral"));
}

TEST_F(GeneralTabOnScreen, choosesTheModeWithTheArrowKeys) {
    open();
    focus(named(u"Free Cursor"_s));
    strike(XK_Down);
    EXPECT_TRUE(isSpoken("radio button 'Defined Zone' checked"));
    EXPECT_TRUE(isSpoken("text 'No zone defined'"));
    EXPECT_TRUE(named(u"Defined Zone"_s).hasFocus());
    strike(XK_Up);
    EXPECT_TRUE(isSpoken("radio button 'Free Cursor' checked"));
    EXPECT_FALSE(isSpoken("text 'No zone defined'"));
}

TEST_F(GeneralTabOnScreen, showsTheToggleOnlyAsItsStateIs) {
    config.clickMode = ClickMode::zone;
    config.zoneRect = CodableRect{1, 2, 3, 4};
    open();
    bool wasOffMeanwhile = false;
    platform.alerts().whileShown = [&](const Alert &) {
        wasOffMeanwhile = !named<QAbstractButton>(u"Relative to a window"_s).isChecked();
    };
    focus(named(u"Relative to a window"_s));
    strike(XK_space);
    EXPECT_TRUE(wasOffMeanwhile);
    EXPECT_FALSE(named<QAbstractButton>(u"Relative to a window"_s).isChecked());

    platform.loginItem().failure = Failure{"refused"};
    named<QAbstractButton>(u"Start at Login"_s).click();
    EXPECT_FALSE(named<QAbstractButton>(u"Start at Login"_s).isChecked());
    platform.loginItem().failure.reset();
    named<QAbstractButton>(u"Start at Login"_s).click();
    EXPECT_TRUE(named<QAbstractButton>(u"Start at Login"_s).isChecked());
}

TEST_F(GeneralTabOnScreen, dropsWhatWasTypedWhenTheTabIsShownAnew) {
    open();
    retype(rate(), "1x");
    named<QAbstractButton>(u"General"_s).click();
    EXPECT_EQ(rate().text(), u"1"_s);
    retype(rate(), "77");
    named<QAbstractButton>(u"About"_s).click();
    named<QAbstractButton>(u"General"_s).click();
    EXPECT_EQ(rate().text(), u"1"_s);
}

TEST_F(GeneralTabOnScreen, changesTabsWithTheArrowKeys) {
    open();
    focus(named(u"General"_s));
    strike(XK_Right);
    EXPECT_EQ(screenWindow().windowTitle(), u"Profiles"_s);
    strike(XK_Right);
    strike(XK_Right);
    EXPECT_EQ(screenWindow().windowTitle(), u"About"_s);
    EXPECT_EQ(first(3, spokenText(screenWindow())),
              lines("tab 'General'\ntab 'Profiles'\ntab 'About' selected"));
    strike(XK_Left);
    EXPECT_EQ(screenWindow().windowTitle(), u"Profiles"_s);
}

TEST_F(GeneralTabOnScreen, isHiddenByEscapeAndByItsCloseButton) {
    open();
    strike(XK_Escape, [this] { return !window->isVisible(); });
    window->makeKeyAndOrderFront();
    EXPECT_TRUE(window->isVisible());
    screenWindow().close();
    EXPECT_FALSE(window->isVisible());
}

TEST_F(ProfilesTabOnScreen, saysWhatItShowsWithoutProfiles) {
    open("profiles");
    EXPECT_EQ(spoken(), lines("text 'No profiles'\n"
                              "text 'Save your current configuration as a profile to quickly "
                              "switch between setups.'\n"
                              "text 'Save current config'\n"
                              "field 'Profile name' = ''\n"
                              "button 'Save' disabled"));
}

TEST_F(ProfilesTabOnScreen, saysWhatItShowsWithProfiles) {
    addProfile("A & B_c");
    addProfile("Two");
    open("profiles");
    EXPECT_EQ(spoken(), lines("text 'Profiles'\n"
                              "group 'A & B_c'\n"
                              "text 'A & B_c'\n"
                              "text 'Active'\n"
                              "text 'Free Cursor · 1/s'\n"
                              "button 'Load'\n"
                              "menu 'More'\n"
                              "group 'Two'\n"
                              "text 'Two'\n"
                              "text 'Free Cursor · 1/s'\n"
                              "button 'Load'\n"
                              "menu 'More'\n"
                              "text 'Save current config'\n"
                              "field 'Profile name' = ''\n"
                              "button 'Save' disabled"));
}

TEST_F(ProfilesTabOnScreen, savesUnderTheNameThatIsTyped) {
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

TEST_F(ProfilesTabOnScreen, pressesTheButtonWithTheFocusWithReturn) {
    addProfile("One");
    open("profiles");
    focus(nameField());
    strike(XK_Return);
    focus(named(u"Load"_s));
    strike(XK_Return, [this] { return !loadedProfiles.empty(); });
    EXPECT_EQ(loadedProfiles, std::vector<std::string>{"One"});
    EXPECT_TRUE(savedProfiles.empty());
}

TEST_F(ProfilesTabOnScreen, deletesFromTheMenuAndKeepsTheOtherRows) {
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
    EXPECT_TRUE(turnUntil([this] { return !isSpoken("group 'One'"); }));
    EXPECT_EQ(spoken().at(1), "group 'Two'");
}

TEST_F(ProfilesTabOnScreen, staysUsableWithVeryManyOddProfiles) {
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

TEST_F(ProfilesTabOnScreen, staysOnTheScreenWhenItGrows) {
    for (int index = 0; index < 30; ++index) {
        addProfile("Profile");
    }
    open();
    named<QAbstractButton>(u"Profiles"_s).click();
    const QRect available = screenWindow().screen()->availableGeometry();
    EXPECT_GT(screenWindow().height(), available.height() / 2);
    EXPECT_TRUE(turnUntil([&] { return available.contains(screenWindow().frameGeometry()); }));
}

/// The lightest colour of a picture.
int lightest(const QImage &image) {
    int lightness = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            lightness = std::max(lightness, image.pixelColor(x, y).lightness());
        }
    }
    return lightness;
}

int darkest(QImage image) {
    image.invertPixels();
    return 255 - lightest(image);
}

/// Restores how the program looks.
class Look {
  public:
    ~Look() {
        QApplication::setPalette(palette_);
        QApplication::setFont(font_);
    }

  private:
    const QPalette palette_ = QApplication::palette();
    const QFont font_ = QApplication::font();
};

TEST_F(AboutTabOnScreen, followsTheColoursOfTheDesktop) {
    const Look before;
    open("about");
    const auto picture = [this](const QString &name) {
        return named(name).grab().toImage().convertToFormat(QImage::Format_RGB32);
    };
    for (const char16_t *name :
         {u"Corvane", u"Profiles", u"Support this app", u"corvane.example"}) {
        EXPECT_LT(darkest(picture(QString::fromUtf16(name))), 110);
    }
    QApplication::setPalette(QPalette(QColor(50, 50, 50), QColor(40, 40, 40)));
    QApplication::processEvents();
    for (const char16_t *name :
         {u"Corvane", u"Profiles", u"Support this app", u"corvane.example"}) {
        EXPECT_GT(lightest(picture(QString::fromUtf16(name))), 140);
    }
}

TEST_F(GeneralTabOnScreen, followsTheColoursOfTheDesktop) {
    const Look before;
    config.clickMode = ClickMode::zone;
    open();
    QApplication::setPalette(QPalette(QColor(50, 50, 50), QColor(40, 40, 40)));
    QApplication::processEvents();
    for (const char16_t *name : {u"Mode", u"Define zone...", u"Relative to a window", u"Rate"}) {
        const QImage picture = named(QString::fromUtf16(name)).grab().toImage();
        EXPECT_GT(lightest(picture.convertToFormat(QImage::Format_RGB32)), 140);
    }
}

TEST_F(AboutTabOnScreen, saysWhatItShowsAndOpensLinks) {
    platform.application().icon = ":/AppIcon.svg";
    open("about");
    EXPECT_EQ(spoken(), lines("text 'Corvane'\n"
                              "text 'Version 2.1 (37)'\n"
                              "text 'A simple auto-clicker for macOS.'\n"
                              "link 'corvane.example'\n"
                              "link 'Support this app'\n"
                              "link 'Made by the Corvane authors'"));
    focus(named(u"Support this app"_s));
    strike(XK_Return, [this] { return !platform.workspace().opened.empty(); });
    EXPECT_EQ(platform.workspace().opened,
              std::vector<std::string>{"https://corvane.example/donate"});
}

TEST_F(AboutTabOnScreen, survivesAnIconThatIsNoPicture) {
    platform.application().icon = "/nowhere/icon.png";
    open("about");
    EXPECT_FALSE(screenWindow().grab().isNull());
}

} // namespace

} // namespace corvane::contract
