#include "platform/drawing/MenuText.h"

#include <QFontMetrics>
#include <QGuiApplication>
#include <QScreen>
#include <gtest/gtest.h>

namespace corvane::contract {

using namespace Qt::StringLiterals;

namespace {

QString popup(const MenuItem &item) { return drawing::popupText(drawing::menuText(item)); }

QString panel(const std::string &title) {
    return drawing::panelLabel(drawing::menuText({.title = title}));
}

TEST(MenuTextTest, WritesAHotKeyAsThisDesktopDoes) {
    EXPECT_EQ(popup({.title = "Stop", .hotKey = startStopKey}), u"Stop\tSuper+Shift+Y"_s);
    EXPECT_EQ(drawing::hotKeyText({.letter = 'A', .shift = true}), "Shift+A");
}

TEST(MenuTextTest, ShowsTheItemsOwnKeyWithControl) {
    EXPECT_EQ(popup({.title = "Quit", .commandKey = "q"}), u"Quit\tCtrl+Q"_s);
    EXPECT_EQ(popup({.title = "Settings...", .commandKey = ","}), u"Settings...\tCtrl+,"_s);
}

TEST(MenuTextTest, NamesTheKeysForThePanel) {
    EXPECT_EQ(drawing::panelKeys(drawing::menuText({.title = "Stop", .hotKey = startStopKey})),
              (QStringList{u"Super"_s, u"Shift"_s, u"Y"_s}));
    EXPECT_EQ(drawing::panelKeys(drawing::menuText({.title = "Settings...", .commandKey = ","})),
              (QStringList{u"Control"_s, u"comma"_s}));
    EXPECT_TRUE(drawing::panelKeys(drawing::menuText({.title = "Idle"})).isEmpty());
}

TEST(MenuTextTest, ATabInATitleIsNoHint) {
    EXPECT_EQ(popup({.title = "Tom\tJerry"}), u"Tom Jerry"_s);
}

TEST(MenuTextTest, ShowsEverySignLiterally) {
    EXPECT_EQ(popup({.title = "A & B && C_D"}), u"A && B &&&& C_D"_s);
    EXPECT_EQ(panel("A & B && C_D__E"), u"A & B && C__D____E"_s);
}

TEST(MenuTextTest, KeepsToOneLine) {
    EXPECT_EQ(popup({.title = "one\r\ntwo\x01three"}), u"one  two three"_s);
    EXPECT_EQ(popup({.title = "one\u2028two\u202Ethree"}), u"one two three"_s);
}

TEST(MenuTextTest, ReplacesWhatIsNotText) {
    EXPECT_EQ(popup({.title = "a\xFF"}), QString(u'a') + QChar(QChar::ReplacementCharacter));
}

/// A title that no screen has room for.
std::string endlessTitle(const std::string &end) { return std::string(2000, 'x') + end; }

int widthOf(const QString &text) {
    return QFontMetrics(QGuiApplication::font()).horizontalAdvance(text);
}

TEST(MenuTextTest, ShowsTitlesThatDifferInTheMiddleApart) {
    const std::string one = std::string(60, 'i') + "1" + std::string(30, 'i');
    EXPECT_EQ(drawing::fittedToScreens(drawing::menuText({.title = one})).label,
              QString::fromStdString(one));
}

TEST(MenuTextTest, CutsATitleAtItsEndWhereTheScreenEnds) {
    const auto fitted = drawing::fittedToScreens(drawing::menuText({.title = endlessTitle("end")}));
    const int screen = QGuiApplication::primaryScreen()->availableGeometry().width();
    EXPECT_TRUE(fitted.label.startsWith(u"xxx"_s));
    EXPECT_TRUE(fitted.label.endsWith(QChar(0x2026)));
    EXPECT_LT(widthOf(fitted.label), screen);
    EXPECT_GT(widthOf(fitted.label), screen / 2);
}

TEST(MenuTextTest, KeepsTheKeysOfATitleThatIsCut) {
    const auto fitted = drawing::fittedToScreens(
        drawing::menuText({.title = endlessTitle("end"), .hotKey = startStopKey}));
    EXPECT_EQ(fitted.keys, (QStringList{u"Super"_s, u"Shift"_s, u"Y"_s}));
}

} // namespace

} // namespace corvane::contract
