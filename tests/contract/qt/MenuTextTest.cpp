#include "platform/drawing/MenuText.h"

#include <gtest/gtest.h>

namespace corvane::contract {

using namespace Qt::StringLiterals;

namespace {

QString popup(const MenuItem &item) { return drawing::popupText(drawing::menuText(item)); }

QString panel(const std::string &title) {
    return drawing::panelLabel(drawing::menuText({.title = title}));
}

TEST(MenuTextTest, SaysTheHintInTheKeysOfThisDesktop) {
    EXPECT_EQ(popup({.title = "Stop\t⇧⌘Y"}), u"Stop\tSuper+Shift+Y"_s);
    EXPECT_EQ(popup({.title = "Go\t⌃⌥F1"}), u"Go\tCtrl+Alt+F1"_s);
}

TEST(MenuTextTest, ShowsTheItemsOwnKeyWithControl) {
    EXPECT_EQ(popup({.title = "Quit", .commandKey = "q"}), u"Quit\tCtrl+Q"_s);
    EXPECT_EQ(popup({.title = "Settings...", .commandKey = ","}), u"Settings...\tCtrl+,"_s);
}

TEST(MenuTextTest, NamesTheKeysForThePanel) {
    EXPECT_EQ(drawing::panelKeys(drawing::menuText({.title = "Stop\t⇧⌘Y"})),
              (QStringList{u"Super"_s, u"Shift"_s, u"Y"_s}));
    EXPECT_EQ(drawing::panelKeys(drawing::menuText({.title = "Settings...", .commandKey = ","})),
              (QStringList{u"Control"_s, u"comma"_s}));
    EXPECT_TRUE(drawing::panelKeys(drawing::menuText({.title = "Idle"})).isEmpty());
}

TEST(MenuTextTest, TakesOnlyKeysForAHint) {
    EXPECT_EQ(popup({.title = "Tom\tJerry"}), u"Tom Jerry"_s);
    EXPECT_EQ(popup({.title = "Tom\t⇧⌘"}), u"Tom ⇧⌘"_s);
    EXPECT_EQ(popup({.title = "Tom\t"}), u"Tom "_s);
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

TEST(MenuTextTest, ShortensVeryLongTitlesInTheMiddle) {
    const auto shown = popup({.title = "first " + std::string(300, 'x') + " last"});
    EXPECT_EQ(shown.size(), 64);
    EXPECT_TRUE(shown.startsWith(u"first "_s));
    EXPECT_TRUE(shown.contains(QChar(0x2026)));
    EXPECT_TRUE(shown.endsWith(u" last"_s));
}

TEST(MenuTextTest, CountsCharactersAsAReaderDoes) {
    const std::string family = "👩‍👩‍👧";
    std::string title;
    for (int count = 0; count < 64; ++count) {
        title += family;
    }
    EXPECT_EQ(popup({.title = title}), QString::fromStdString(title));
    const auto shown = popup({.title = title + family});
    EXPECT_TRUE(shown.startsWith(QString::fromStdString(family)));
    EXPECT_TRUE(shown.endsWith(QString::fromStdString(family)));
    EXPECT_LT(shown.size(), QString::fromStdString(title).size());
}

} // namespace

} // namespace corvane::contract
