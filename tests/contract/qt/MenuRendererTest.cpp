#include "platform/qt/menus/MenuRenderer.h"

#include "EventLoop.h"
#include "SampleMenu.h"

#include <QActionEvent>
#include <QApplication>
#include <QKeyEvent>
#include <QScreen>
#include <QTextDocument>
#include <QTimer>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace corvane::contract {

using namespace Qt::StringLiterals;

namespace {

/// Counts the changes of a menu's actions.
class ActionEvents : public QObject {
  public:
    explicit ActionEvents(QMenu &menu) { menu.installEventFilter(this); }

    int added = 0;
    int removed = 0;
    int changed = 0;

  protected:
    bool eventFilter(QObject *watched, QEvent *event) override {
        added += event->type() == QEvent::ActionAdded ? 1 : 0;
        removed += event->type() == QEvent::ActionRemoved ? 1 : 0;
        changed += event->type() == QEvent::ActionChanged ? 1 : 0;
        return QObject::eventFilter(watched, event);
    }
};

class MenuRendererTest : public testing::Test {
  protected:
    QAction &action(qsizetype index) { return *renderer_.menu().actions().at(index); }
    QMenu &profiles() { return *action(5).menu(); }

    /// Chooses a line; whether a command came of it.
    bool isCommandOf(QAction &chosen) {
        const auto before = commands_.size();
        chosen.trigger();
        flush();
        return commands_.size() > before;
    }

    /// Lets what is queued happen.
    void flush() {
        bool isDone = false;
        QTimer::singleShot(0, &renderer_.menu(), [&isDone] { isDone = true; });
        ASSERT_TRUE(turnUntil([&isDone] { return isDone; }));
    }

    void open() {
        renderer_.menu().popup(QPoint(20, 20));
        ASSERT_TRUE(turnUntil([this] { return renderer_.menu().isVisible(); }));
    }

    void press(QWidget &widget, Qt::Key key, Qt::KeyboardModifiers modifiers) {
        QKeyEvent event(QEvent::KeyPress, key, modifiers);
        QApplication::sendEvent(&widget, &event);
    }

    std::vector<MenuCommand> commands_;
    drawing::SymbolImages symbols_;
    qt::MenuRenderer renderer_{
        symbols_, [this](const MenuCommand &command) { commands_.push_back(command); }};
};

TEST_F(MenuRendererTest, ShowsEveryLineAsTheValueSays) {
    const auto menu = sampleMenu();
    renderer_.setMenu(menu);
    ASSERT_EQ(renderer_.menu().actions().size(), static_cast<qsizetype>(menu.items.size()));
    for (std::size_t index = 0; index < menu.items.size(); ++index) {
        const auto &item = menu.items[index];
        const auto &shown = action(static_cast<qsizetype>(index));
        EXPECT_EQ(shown.isSeparator(), item.isSeparator) << item.title;
        EXPECT_EQ(shown.isEnabled(), item.isEnabled) << item.title;
        EXPECT_EQ(shown.isChecked(), item.isOn) << item.title;
        EXPECT_EQ(shown.icon().isNull(), !item.image.has_value()) << item.title;
        EXPECT_EQ(shown.menu() != nullptr, item.submenu.has_value()) << item.title;
    }
    EXPECT_EQ(action(2).text(), u"Stop\tSuper+Shift+Y"_s);
    EXPECT_EQ(profiles().actions().size(), 4);
}

TEST_F(MenuRendererTest, LeavesAnUnchangedMenuAlone) {
    renderer_.setMenu(sampleMenu());
    ActionEvents events(renderer_.menu());
    ActionEvents submenuEvents(profiles());
    renderer_.setMenu(sampleMenu());
    renderer_.menu();
    EXPECT_EQ(events.added + events.removed + events.changed, 0);
    EXPECT_EQ(submenuEvents.added + submenuEvents.removed + submenuEvents.changed, 0);
}

TEST_F(MenuRendererTest, TouchesOnlyTheLineThatDiffers) {
    auto menu = sampleMenu();
    renderer_.setMenu(menu);
    const auto before = renderer_.menu().actions();
    ActionEvents events(renderer_.menu());
    menu.items[0].title = "Running (7)";
    renderer_.setMenu(menu);
    EXPECT_EQ(action(0).text(), u"Running (7)"_s);
    EXPECT_EQ(renderer_.menu().actions(), before);
    EXPECT_EQ(events.changed, 1);
    EXPECT_EQ(events.added + events.removed, 0);
}

TEST_F(MenuRendererTest, LeavesAMenuThatNobodySeesAloneUntilItOpens) {
    auto menu = sampleMenu();
    renderer_.setMenu(menu);
    auto &shown = renderer_.menu();
    ActionEvents events(shown);
    const auto titleOf = [&](int count) {
        menu.items[0].title = "Running (" + std::to_string(count) + ")";
        renderer_.setMenu(menu);
        return shown.actions().at(0)->text();
    };
    for (int count = 1; count <= 100; ++count) {
        EXPECT_EQ(titleOf(count), u"Running"_s);
    }
    EXPECT_EQ(events.changed, 0);

    shown.popup(QPoint(20, 20));
    EXPECT_EQ(events.changed, 1);
    EXPECT_EQ(shown.actions().at(0)->text(), u"Running (100)"_s);
    ASSERT_TRUE(turnUntil([&shown] { return shown.isVisible(); }));
    EXPECT_EQ(titleOf(101), u"Running (101)"_s);
    shown.close();
    EXPECT_EQ(titleOf(102), u"Running (101)"_s);
}

TEST_F(MenuRendererTest, PutsLinesWhereTheyBelongAndTakesThemAway) {
    auto menu = sampleMenu({"one", "two", "three"});
    renderer_.setMenu(menu);
    menu.items.insert(menu.items.begin() + 5,
                      {.title = "Define zone...", .action = ActionID::selectZone});
    menu.items[6].submenu->erase(menu.items[6].submenu->begin() + 1);
    ActionEvents events(renderer_.menu());
    renderer_.setMenu(menu);
    renderer_.menu();
    EXPECT_EQ(events.added, 1);
    EXPECT_EQ(events.removed, 0);
    EXPECT_EQ(action(5).text(), u"Define zone..."_s);
    const auto &submenu = *action(6).menu();
    ASSERT_EQ(submenu.actions().size(), 4);
    EXPECT_EQ(submenu.actions().at(0)->text(), u"one"_s);
    EXPECT_EQ(submenu.actions().at(1)->text(), u"three"_s);

    renderer_.setMenu({});
    EXPECT_TRUE(renderer_.menu().actions().isEmpty());
}

TEST_F(MenuRendererTest, KeepsAnOpenMenuOpenAndTheSelectionInPlace) {
    auto menu = sampleMenu();
    renderer_.setMenu(menu);
    open();
    auto &quit = action(7);
    renderer_.menu().setActiveAction(&quit);
    for (int count = 1; count <= 100; ++count) {
        menu.items[0].title = "Running (" + std::to_string(count) + ")";
        renderer_.setMenu(menu);
        QApplication::processEvents();
    }
    EXPECT_TRUE(renderer_.menu().isVisible());
    EXPECT_EQ(renderer_.menu().activeAction(), &quit);
    EXPECT_EQ(action(0).text(), u"Running (100)"_s);
    press(renderer_.menu(), Qt::Key_Return, Qt::NoModifier);
    EXPECT_TRUE(turnUntil([this] { return !commands_.empty(); }));
    EXPECT_EQ(commands_.at(0).action, ActionID::terminate);
    EXPECT_FALSE(renderer_.menu().isVisible());
}

TEST_F(MenuRendererTest, SendsTheCommandWithWhatItStandsFor) {
    renderer_.setMenu(sampleMenu());
    EXPECT_TRUE(isCommandOf(action(2)));
    EXPECT_TRUE(isCommandOf(*profiles().actions().at(1)));
    EXPECT_EQ(commands_, (std::vector<MenuCommand>{{.action = ActionID::stopClicking},
                                                   {.action = ActionID::loadProfile,
                                                    .representedObject = "id of Work"}}));
}

TEST_F(MenuRendererTest, SendsNothingForALineWithoutCommandOrADisabledOne) {
    auto menu = sampleMenu();
    menu.items[0].isEnabled = true;
    renderer_.setMenu(menu);
    EXPECT_FALSE(isCommandOf(action(0)));
    EXPECT_FALSE(isCommandOf(action(3)));
}

TEST_F(MenuRendererTest, LeavesTheCheckMarkToTheNextValue) {
    auto menu = sampleMenu();
    menu.items[3].isEnabled = true;
    renderer_.setMenu(menu);
    EXPECT_TRUE(isCommandOf(action(3)));
    EXPECT_TRUE(action(3).isChecked());
    EXPECT_TRUE(isCommandOf(action(4)));
    EXPECT_FALSE(action(4).isChecked());
}

TEST_F(MenuRendererTest, TakesANewMenuFromWithinACommand) {
    qt::MenuRenderer *renderer = nullptr;
    qt::MenuRenderer changing(symbols_,
                              [&renderer](const MenuCommand &) { renderer->setMenu({}); });
    renderer = &changing;
    changing.setMenu(sampleMenu());
    changing.menu().actions().at(2)->trigger();
    EXPECT_TRUE(turnUntil([&changing] { return changing.menu().actions().isEmpty(); }));
}

TEST_F(MenuRendererTest, AnswersItsKeysWhileOpen) {
    renderer_.setMenu(sampleMenu());
    open();
    press(renderer_.menu(), Qt::Key_Comma, Qt::ControlModifier);
    EXPECT_TRUE(turnUntil([this] { return !commands_.empty(); }));
    EXPECT_EQ(commands_.at(0).action, ActionID::showConfig);
    EXPECT_FALSE(renderer_.menu().isVisible());
}

TEST_F(MenuRendererTest, AnswersItsKeysInAnOpenSubmenuToo) {
    renderer_.setMenu(sampleMenu());
    open();
    renderer_.menu().setActiveAction(&action(5));
    profiles().popup(QPoint(200, 200));
    ASSERT_TRUE(turnUntil([this] { return profiles().isVisible(); }));
    press(profiles(), Qt::Key_Q, Qt::ControlModifier);
    EXPECT_TRUE(turnUntil([this] { return !commands_.empty(); }));
    EXPECT_EQ(commands_.at(0).action, ActionID::terminate);
    EXPECT_FALSE(renderer_.menu().isVisible());
    EXPECT_FALSE(profiles().isVisible());
}

TEST_F(MenuRendererTest, DoesNotAnswerTheKeyOfADisabledLine) {
    auto menu = sampleMenu();
    menu.items[6].isEnabled = false;
    renderer_.setMenu(menu);
    open();
    press(renderer_.menu(), Qt::Key_Comma, Qt::ControlModifier);
    flush();
    EXPECT_TRUE(commands_.empty());
    EXPECT_TRUE(renderer_.menu().isVisible());
}

TEST_F(MenuRendererTest, ScrollsAMenuThatIsTallerThanTheScreen) {
    const std::vector<std::string> names(500, "Profile 500");
    renderer_.setMenu(sampleMenu(names));
    profiles().popup(QPoint(0, 0));
    ASSERT_TRUE(turnUntil([this] { return profiles().isVisible(); }));
    EXPECT_LE(profiles().height(), QApplication::primaryScreen()->geometry().height());
    EXPECT_LT(profiles().width(), QApplication::primaryScreen()->geometry().width() / 2);
    press(profiles(), Qt::Key_End, Qt::NoModifier);
    ASSERT_NE(profiles().activeAction(), nullptr);
    EXPECT_EQ(profiles().activeAction()->text(), u"Save current config..."_s);
    EXPECT_TRUE(
        profiles().rect().contains(profiles().actionGeometry(profiles().activeAction()).center()));
    profiles().close();
}

TEST_F(MenuRendererTest, ShowsTheWholeNameAsToolTipOfALineThatIsCut) {
    const std::string name = "Tom & <b>Jerry</b> " + std::string(2000, 'x');
    renderer_.setMenu(sampleMenu({name, "Work"}));
    const QAction &cut = *profiles().actions().at(0);
    EXPECT_LT(cut.text().size(), 1000);
    QTextDocument shown;
    shown.setHtml(cut.toolTip());
    EXPECT_EQ(shown.toPlainText().toStdString(), name);
    EXPECT_TRUE(profiles().toolTipsVisible());
    // Without a tool tip of its own, an action offers its text.
    EXPECT_EQ(profiles().actions().at(1)->toolTip(), u"Work"_s);
    profiles().popup(QPoint(0, 0));
    ASSERT_TRUE(turnUntil([this] { return profiles().isVisible(); }));
    EXPECT_LE(profiles().width(), QApplication::primaryScreen()->geometry().width());
    profiles().close();
}

TEST_F(MenuRendererTest, ShowsALineWhoseSymbolIsMissing) {
    renderer_.setMenu({{{.title = "Odd",
                         .action = ActionID::startClicking,
                         .image = Symbol{.name = "no.such"}}}});
    EXPECT_TRUE(action(0).icon().isNull());
    EXPECT_TRUE(isCommandOf(action(0)));
}

TEST_F(MenuRendererTest, TintsItsImagesAnewWithThePalette) {
    renderer_.setMenu(sampleMenu());
    const auto before = action(2).icon().pixmap(16, 16).toImage();
    auto palette = renderer_.menu().palette();
    palette.setColor(QPalette::Text, Qt::red);
    renderer_.menu().setPalette(palette);
    EXPECT_NE(action(2).icon().pixmap(16, 16).toImage(), before);
}

} // namespace

} // namespace corvane::contract
