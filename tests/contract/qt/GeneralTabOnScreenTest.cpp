#include "EventLoop.h"
#include "Look.h"
#include "SettingsWindowTest.h"
#include "SpokenText.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QComboBox>
#include <QEventLoop>
#include <QLineEdit>
#include <QPointer>
#include <QRadioButton>
#include <QScreen>
#include <QTimer>
#include <X11/keysym.h>

namespace corvane::contract {

using namespace Qt::StringLiterals;

namespace {

std::vector<std::string> first(std::size_t count, std::vector<std::string> lines) {
    lines.resize(count);
    return lines;
}

class GeneralTabOnScreenTest : public SettingsWindowTest {
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
        return isSpoken("label '= 1 click every " + seconds + "s'");
    }

    /// Types into an emptied field.
    void retype(QLineEdit &field, const std::string &text) const {
        focus(field);
        field.selectAll();
        strike(XK_Delete);
        type(text);
    }
};

TEST_F(GeneralTabOnScreenTest, ShowsWhatBelongsToAZoneInItsPlace) {
    config.zoneRect = CodableRect{120.4, 80, 300, 200};
    config.windowAnchor = WindowAnchor{"org.example.editor", "Tom & Jerry _", {1, 2, 300, 200}};
    platform.loginItem().enabled = true;
    open();
    const int height = screenWindow().height();
    named<QRadioButton>(u"Defined Zone"_s).click();
    EXPECT_EQ(first(12, spoken()), lines("label 'Mode'\n"
                                         "panel 'Mode'\n"
                                         "radio button 'Free Cursor'\n"
                                         "radio button 'Defined Zone' checked\n"
                                         "label 'Zone: 120, 80 — 300×200'\n"
                                         "push button 'Define zone...'\n"
                                         "check box 'Relative to a window' checked\n"
                                         "label 'Anchored to org.example.editor'\n"
                                         "label '(Tom & Jerry _)'\n"
                                         "label 'Rate'\n"
                                         "text 'Rate' = '1'\n"
                                         "spin box 'Rate' = 1"));
    EXPECT_TRUE(isSpoken("check box 'Start at Login' checked"));
    EXPECT_TRUE(turnUntil([&] { return screenWindow().height() > height; }));
    named<QRadioButton>(u"Free Cursor"_s).click();
    EXPECT_TRUE(turnUntil([&] { return screenWindow().height() == height; }));
}

TEST_F(GeneralTabOnScreenTest, CutsALongWindowTitleRatherThanTheApplication) {
    config.clickMode = ClickMode::zone;
    config.zoneRect = CodableRect{1, 2, 3, 4};
    config.windowAnchor = WindowAnchor{"editor", std::string(300, 'w'), {1, 2, 3, 4}};
    platform.applications().names = {{"editor", "Text Editor"}};
    open();
    // What is cut has its whole text as a tool tip.
    EXPECT_EQ(named(u"Anchored to Text Editor"_s).toolTip(), QString());
    EXPECT_NE(named(u"("_s + QString(300, u'w') + u")"_s).toolTip(), QString());
    EXPECT_EQ(screenWindow().width(), 540);
}

TEST_F(GeneralTabOnScreenTest, IsAsWideAsItShouldBeAndCannotBeResized) {
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

struct Edit {
    const char *name;
    std::string keys;
    /// What the keys stand for; it is in the field once that has lost the keyboard.
    std::string value;
    std::string interval;

    friend std::ostream &operator<<(std::ostream &stream, const Edit &edit) {
        return stream << edit.name;
    }
};

class NumberEditTest : public GeneralTabOnScreenTest, public ::testing::WithParamInterface<Edit> {};

TEST_P(NumberEditTest, TakesANumberAsItIsTypedAndKeepsTheLastOne) {
    const auto &[name, keys, value, interval] = GetParam();
    config.clickRate = 20;
    open();
    retype(rate(), keys);
    EXPECT_EQ(rate().text().toStdString(), keys);
    EXPECT_TRUE(isSpoken("spin box 'Rate' = " + value));
    EXPECT_TRUE(saysInterval(interval));
    focus(limit());
    EXPECT_EQ(rate().text().toStdString(), value);
    strike(XK_Return);
    ASSERT_EQ(saved.size(), 1U);
    EXPECT_EQ(std::to_string(saved.front().clickRate), value);
}

INSTANTIATE_TEST_SUITE_P(
    Edits, NumberEditTest,
    ::testing::Values(Edit{"beyondTheStepper", "20000", "20000", "0.00"},
                      Edit{"lettersBehind", "12x", "12", "0.08"},
                      Edit{"unfinished", "7-", "7", "0.14"}, Edit{"noNumber", "x", "20", "0.05"},
                      Edit{"nothing", "", "20", "0.05"}, Edit{"negative", "-5", "-5", "1.00"},
                      Edit{"zero", "0", "0", "1.00"}, Edit{"fraction", "1.5", "1", "1.00"},
                      Edit{"largest", "9223372036854775807", "9223372036854775807", "0.00"},
                      Edit{"tooLarge", "92233720368547758070", "9223372036854775807", "0.00"},
                      Edit{"smallest", "-9223372036854775808", "-9223372036854775808", "1.00"},
                      Edit{"tooSmall", "-92233720368547758080", "-9223372036854775808", "1.00"}),
    [](const auto &edit) { return std::string(edit.param.name); });

TEST_F(GeneralTabOnScreenTest, SaysUnlimitedOnlyWhereThereIsNoLimit) {
    open();
    retype(limit(), "5");
    EXPECT_FALSE(isSpoken("label '(unlimited)'"));
    retype(limit(), "0");
    EXPECT_TRUE(isSpoken("label '(unlimited)'"));
}

TEST_F(GeneralTabOnScreenTest, LetsTheFieldFollowTheStepper) {
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

TEST_F(GeneralTabOnScreenTest, KeepsFocusCursorAndSelectionWhileOtherThingsChange) {
    open();
    retype(limit(), "12345");
    limit().setSelection(1, 3);
    named<QRadioButton>(u"Defined Zone"_s).click();
    EXPECT_TRUE(isSpoken("label 'No zone defined'"));
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

TEST_F(GeneralTabOnScreenTest, PerformsOKWithReturnFromAnywhere) {
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

TEST_F(GeneralTabOnScreenTest, SurvivesItsEndInItsOwnHandler) {
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

TEST_F(GeneralTabOnScreenTest, IgnoresItsToolbarOnceItIsGone) {
    open();
    QEventLoop loop;
    QTimer::singleShot(0, &loop, [&] {
        const QPointer about = &named<QAbstractButton>(u"About"_s);
        const auto general = tab;
        window.reset();
        // Deleted later, because it may be the one whose handler is running.
        EXPECT_TRUE(about);
        if (about) {
            about->click();
        }
        EXPECT_EQ(tab, general);
        loop.quit();
    });
    loop.exec();
}

TEST_F(GeneralTabOnScreenTest, GoesThroughTheControlsInTheirOrder) {
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
    for (std::size_t index = visited.size() - 1; index > 0; --index) {
        const QWidget *former = QApplication::focusWidget();
        strikeWithShift(XK_Tab, [former] { return QApplication::focusWidget() != former; });
        EXPECT_EQ(QApplication::focusWidget()->accessibleName().toStdString(), visited[index - 1]);
    }
}

TEST_F(GeneralTabOnScreenTest, ChoosesTheModeWithTheArrowKeys) {
    open();
    focus(named(u"Free Cursor"_s));
    strike(XK_Down);
    EXPECT_TRUE(isSpoken("radio button 'Defined Zone' checked"));
    EXPECT_TRUE(isSpoken("label 'No zone defined'"));
    EXPECT_TRUE(named(u"Defined Zone"_s).hasFocus());
    strike(XK_Up);
    EXPECT_TRUE(isSpoken("radio button 'Free Cursor' checked"));
    EXPECT_FALSE(isSpoken("label 'No zone defined'"));
}

TEST_F(GeneralTabOnScreenTest, ShowsTheToggleOnlyAsItsStateIs) {
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

TEST_F(GeneralTabOnScreenTest, DropsWhatWasTypedWhenTheTabIsShownAnew) {
    open();
    retype(rate(), "1x");
    named<QAbstractButton>(u"General"_s).click();
    EXPECT_EQ(rate().text(), u"1"_s);
    retype(rate(), "77");
    named<QAbstractButton>(u"About"_s).click();
    named<QAbstractButton>(u"General"_s).click();
    EXPECT_EQ(rate().text(), u"1"_s);
}

TEST_F(GeneralTabOnScreenTest, ChangesTabsWithTheArrowKeys) {
    open();
    focus(named(u"General"_s));
    strike(XK_Right);
    EXPECT_EQ(screenWindow().windowTitle(), u"Profiles"_s);
    strike(XK_Right);
    strike(XK_Right);
    EXPECT_EQ(screenWindow().windowTitle(), u"About"_s);
    EXPECT_EQ(first(3, spokenText(screenWindow())),
              lines("page tab 'General'\npage tab 'Profiles'\npage tab 'About' selected"));
    strike(XK_Left);
    EXPECT_EQ(screenWindow().windowTitle(), u"Profiles"_s);
}

TEST_F(GeneralTabOnScreenTest, IsHiddenByEscapeAndByItsCloseButton) {
    open();
    strike(XK_Escape, [this] { return !window->isVisible(); });
    window->makeKeyAndOrderFront();
    EXPECT_TRUE(window->isVisible());
    screenWindow().close();
    EXPECT_FALSE(window->isVisible());
}

TEST_F(GeneralTabOnScreenTest, FollowsTheColoursOfTheDesktop) {
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

TEST_F(GeneralTabOnScreenTest, OutlinesWhatIsNotCheckedAlsoInTheDark) {
    const Look before;
    open();
    QApplication::setPalette(QPalette(QColor(50, 50, 50), QColor(40, 40, 40)));
    QApplication::processEvents();
    for (const char16_t *name : {u"Defined Zone", u"Start at Login"}) {
        QWidget &button = named(QString::fromUtf16(name));
        constexpr int indicatorWidth = 13;
        const QImage picture = button.grab({0, 0, indicatorWidth, button.height()}).toImage();
        EXPECT_GT(lightest(picture.convertToFormat(QImage::Format_RGB32)), 110)
            << button.accessibleName().toStdString();
    }
}

} // namespace

} // namespace corvane::contract
