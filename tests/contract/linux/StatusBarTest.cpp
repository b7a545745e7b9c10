#include "EventLoop.h"
#include "FakePanel.h"
#include "FakeTray.h"
#include "SampleMenu.h"
#include "XClient.h"
#include "platform/linux/StatusItem.h"

#include <QApplication>
#include <QCursor>
#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QImage>
#include <QMenu>
#include <QScreen>
#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace corvane::contract {

using namespace Qt::StringLiterals;

namespace {

using desktop::FakePanel;

class StatusBarTest : public testing::Test {
  protected:
    StatusBarTest() {
        item_ =
            bar_.createItem([this](const MenuCommand &command) { commands_.push_back(command); });
        item_->setIcon(
            {.image = {.name = "cursorarrow.click.2", .description = "Corvane"}, .title = ""});
        item_->setMenu(sampleMenu());
    }

    static bool registers(const FakePanel &panel, qsizetype count = 1) {
        return turnUntil([&] { return panel.items().size() >= count; });
    }

    static bool docks(FakeTray &tray) {
        return turnUntil([&] { return tray.icons() == 1; });
    }

    static QMenu *openPopup() { return qobject_cast<QMenu *>(QApplication::activePopupWidget()); }

    static bool opensPopup() {
        return turnUntil([] { return openPopup() != nullptr; });
    }

    /// Presses and releases a mouse button where the tray shows its icon.
    void clickIcon(int button) {
        user_.pointer().moveTo({FakeTray::iconMiddle, FakeTray::iconMiddle});
        user_.pointer().click(button);
    }

    XClient user_;
    x11::XcbEvents events_{x11::XcbConnection::open().value(),
                           [] { ADD_FAILURE() << "the server is gone"; }};
    linux::StatusBar bar_{events_};
    std::vector<MenuCommand> commands_;
    std::unique_ptr<platform::StatusItem> item_;
};

TEST_F(StatusBarTest, KeepsTheItemOnADesktopWithoutAPanel) {
    EXPECT_EQ(item_->buttonSize(), (Size{22, 22}));
    item_->openMenu();
    ASSERT_TRUE(opensPopup());
    EXPECT_EQ(openPopup()->actions().size(), static_cast<qsizetype>(sampleMenu().items.size()));
    openPopup()->actions().at(7)->trigger();
    EXPECT_TRUE(turnUntil([this] { return !commands_.empty(); }));
    EXPECT_EQ(commands_.at(0), (MenuCommand{.action = ActionID::terminate}));
    openPopup()->close();
}

TEST_F(StatusBarTest, OpensTheMenuAtThePointerWithoutAPanel) {
    user_.pointer().moveTo({211, 97});
    ASSERT_TRUE(turnUntil([] { return QCursor::pos() == QPoint(211, 97); }));
    item_->openMenu();
    ASSERT_TRUE(opensPopup());
    EXPECT_TRUE(openPopup()->geometry().adjusted(-2, -2, 2, 2).contains(QPoint(211, 97)));
    openPopup()->close();
}

TEST_F(StatusBarTest, RegistersWithAPanel) {
    FakePanel panel;
    ASSERT_TRUE(registers(panel));
    EXPECT_EQ(panel.itemProperty(u"Category"_s).toString(), u"ApplicationStatus"_s);
    EXPECT_EQ(panel.itemProperty(u"Status"_s).toString(), u"Active"_s);
    EXPECT_EQ(panel.itemProperty(u"Title"_s).toString(), u"Corvane"_s);
    EXPECT_TRUE(panel.itemProperty(u"ItemIsMenu"_s).toBool());
    EXPECT_EQ(panel.itemProperty(u"Menu"_s).value<QDBusObjectPath>().path(), u"/MenuBar"_s);
    EXPECT_FALSE(panel.itemProperty(u"NoSuchProperty"_s).isValid());
}

TEST_F(StatusBarTest, GivesThePanelItsIconInSizesItTakes) {
    FakePanel panel;
    ASSERT_TRUE(registers(panel));
    const auto pixmaps = panel.iconPixmaps();
    ASSERT_FALSE(pixmaps.isEmpty());
    for (const auto &pixmap : pixmaps) {
        EXPECT_GE(pixmap.width, 16);
        EXPECT_LE(pixmap.width, 64);
        EXPECT_EQ(pixmap.height, pixmap.width);
        EXPECT_EQ(pixmap.bytes.size(), 4 * pixmap.width * pixmap.height);
    }
}

TEST_F(StatusBarTest, ShowsANewIconOnlyWhenItDiffers) {
    FakePanel panel;
    ASSERT_TRUE(registers(panel));
    panel.menu();
    const auto before = panel.signalCount(u"NewIcon"_s);
    StatusIcon icon{.image = {.name = "cursorarrow.click.2", .description = "Corvane"},
                    .title = ""};
    item_->setIcon(icon);
    panel.menu();
    EXPECT_EQ(panel.signalCount(u"NewIcon"_s), before);

    const auto idle = panel.iconPixmaps().last().bytes;
    icon.dot =
        StatusDot{.frame = {14, 2, 7, 7}, .cornerRadius = 3.5, .colour = {ColourName::systemGreen}};
    item_->setIcon(icon);
    EXPECT_NE(panel.iconPixmaps().last().bytes, idle);
    EXPECT_EQ(panel.signalCount(u"NewIcon"_s), before + 1);
}

TEST_F(StatusBarTest, KeepsTheIconWhenASymbolIsMissing) {
    FakePanel panel;
    ASSERT_TRUE(registers(panel));
    const auto before = panel.iconPixmaps().last().bytes;
    item_->setIcon({.image = {.name = "no.such.symbol"}, .title = ""});
    EXPECT_EQ(panel.iconPixmaps().last().bytes, before);
}

TEST_F(StatusBarTest, GivesThePanelItsToolTip) {
    FakePanel panel;
    ASSERT_TRUE(registers(panel));
    item_->setToolTip("Corvane is idle");
    EXPECT_EQ(panel.toolTipTitle(), u"Corvane is idle"_s);
}

TEST_F(StatusBarTest, SendsNothingForAnUnchangedToolTip) {
    FakePanel panel;
    ASSERT_TRUE(registers(panel));
    item_->setToolTip("Corvane is idle");
    panel.itemProperty(u"ToolTip"_s);
    const int before = panel.signalCount(u"NewToolTip"_s);
    EXPECT_GT(before, 0);
    for (int count = 0; count < 50; ++count) {
        item_->setToolTip("Corvane is idle");
    }
    panel.itemProperty(u"ToolTip"_s);
    EXPECT_EQ(panel.signalCount(u"NewToolTip"_s), before);
    item_->setToolTip("");
    EXPECT_TRUE(turnUntil([&] { return panel.signalCount(u"NewToolTip"_s) == before + 1; }));
}

TEST_F(StatusBarTest, GivesThePanelTheWholeMenu) {
    FakePanel panel;
    ASSERT_TRUE(registers(panel));
    const auto layout = panel.menu();
    ASSERT_EQ(layout.children.size(), 8);
    const auto property = [&](std::size_t line, const QString &name) {
        return layout.children.at(line).properties.value(name);
    };
    EXPECT_EQ(property(0, u"label"_s).toString(), u"Running"_s);
    EXPECT_FALSE(property(0, u"enabled"_s).toBool());
    EXPECT_EQ(property(1, u"type"_s).toString(), u"separator"_s);
    EXPECT_EQ(property(2, u"label"_s).toString(), u"Stop"_s);
    EXPECT_TRUE(property(2, u"enabled"_s).toBool());
    EXPECT_EQ(qdbus_cast<QList<QStringList>>(property(2, u"shortcut"_s)),
              (QList<QStringList>{{u"Super"_s, u"Shift"_s, u"Y"_s}}));
    const auto image = QImage::fromData(property(2, u"icon-data"_s).toByteArray(), "PNG");
    ASSERT_EQ(image.size(), QSize(32, 32));
    EXPECT_EQ(image.pixelColor(16, 16), QColor(0x82, 0x82, 0x86));
    EXPECT_EQ(property(3, u"toggle-state"_s).toInt(), 1);
    EXPECT_EQ(property(3, u"toggle-type"_s).toString(), u"checkmark"_s);
    EXPECT_FALSE(property(4, u"toggle-type"_s).isValid());
    EXPECT_EQ(property(5, u"children-display"_s).toString(), u"submenu"_s);
    EXPECT_EQ(layout.children.at(5).children.size(), 4);
    EXPECT_EQ(qdbus_cast<QList<QStringList>>(property(7, u"shortcut"_s)),
              (QList<QStringList>{{u"Control"_s, u"Q"_s}}));
}

TEST_F(StatusBarTest, ShowsNamesLiterallyOnThePanel) {
    FakePanel panel;
    ASSERT_TRUE(registers(panel));
    item_->setMenu(sampleMenu({"A & B & C", "snake_case", "two\nlines"}));
    const auto names = panel.menu().children.at(5).children;
    EXPECT_EQ(names.at(0).label(), u"A & B & C"_s);
    EXPECT_EQ(names.at(1).label(), u"snake__case"_s);
    EXPECT_EQ(names.at(2).label(), u"two lines"_s);
}

TEST_F(StatusBarTest, GivesThePanelLongNamesAsWideAsTheScreenAllows) {
    FakePanel panel;
    ASSERT_TRUE(registers(panel));
    const std::string whole = std::string(80, 'i') + "1" + std::string(40, 'i');
    item_->setMenu(sampleMenu({whole, std::string(2000, 'x')}));
    const auto names = panel.line(u"Profiles"_s).children;
    EXPECT_EQ(names.at(0).label().toStdString(), whole);
    EXPECT_TRUE(names.at(1).label().endsWith(QChar(0x2026)));
    EXPECT_LT(names.at(1).label().size(), 1000);
}

TEST_F(StatusBarTest, SendsNothingForAnUnchangedMenu) {
    FakePanel panel;
    ASSERT_TRUE(registers(panel));
    panel.menu();
    const auto layoutsBefore = panel.signalCount(u"LayoutUpdated"_s);
    const auto updatesBefore = panel.updates().size();
    for (int count = 0; count < 50; ++count) {
        item_->setMenu(sampleMenu());
    }
    panel.menu();
    EXPECT_EQ(panel.signalCount(u"LayoutUpdated"_s), layoutsBefore);
    EXPECT_EQ(panel.updates().size(), updatesBefore);
}

TEST_F(StatusBarTest, SendsOneChangedTitleWithoutANewLayout) {
    FakePanel panel;
    ASSERT_TRUE(registers(panel));
    const auto before = panel.menu();
    const auto layoutsBefore = panel.signalCount(u"LayoutUpdated"_s);
    const auto updatesBefore = panel.updates().size();
    auto menu = sampleMenu();
    menu.items[0].title = "Running (1)";
    item_->setMenu(menu);
    const auto after = panel.menu();
    EXPECT_EQ(panel.signalCount(u"LayoutUpdated"_s), layoutsBefore);
    ASSERT_EQ(panel.updates().size(), updatesBefore + 1);
    EXPECT_EQ(panel.updates().last().id, before.children.at(0).id);
    EXPECT_EQ(panel.updates().last().properties, (QVariantMap{{u"label"_s, u"Running (1)"_s}}));
    EXPECT_EQ(after.children.at(0).label(), u"Running (1)"_s);
}

TEST_F(StatusBarTest, SendsOneNewLayoutForALineThatComes) {
    FakePanel panel;
    ASSERT_TRUE(registers(panel));
    const auto before = panel.menu();
    const auto layoutsBefore = panel.signalCount(u"LayoutUpdated"_s);
    auto menu = sampleMenu();
    menu.items.insert(menu.items.begin() + 5,
                      {.title = "Define zone...", .action = ActionID::selectZone});
    item_->setMenu(menu);
    const auto after = panel.menu();
    EXPECT_EQ(panel.signalCount(u"LayoutUpdated"_s), layoutsBefore + 1);
    ASSERT_EQ(after.children.size(), before.children.size() + 1);
    EXPECT_EQ(after.children.at(4).id, before.children.at(4).id);
    EXPECT_EQ(after.children.at(6).id, before.children.at(5).id);
}

TEST_F(StatusBarTest, CarriesOutWhatIsChosenOnThePanel) {
    FakePanel panel;
    ASSERT_TRUE(registers(panel));
    EXPECT_TRUE(panel.choose(panel.line(u"Work"_s).id));
    EXPECT_TRUE(panel.choose(panel.line(u"Quit Corvane"_s).id));
    EXPECT_TRUE(turnUntil([this] { return commands_.size() == 2; }));
    EXPECT_EQ(commands_, (std::vector<MenuCommand>{
                             {.action = ActionID::loadProfile, .representedObject = "id of Work"},
                             {.action = ActionID::terminate}}));
}

TEST_F(StatusBarTest, RefusesWhatCannotBeChosenOnThePanel) {
    FakePanel panel;
    ASSERT_TRUE(registers(panel));
    EXPECT_TRUE(panel.choose(panel.line(u"Running"_s).id));
    EXPECT_TRUE(panel.choose(panel.line(u"Free Cursor"_s).id));
    EXPECT_FALSE(panel.choose(123456));
    EXPECT_TRUE(panel.choose(panel.line(u"Stop"_s).id));
    EXPECT_TRUE(turnUntil([this] { return !commands_.empty(); }));
    EXPECT_EQ(commands_, (std::vector<MenuCommand>{{.action = ActionID::stopClicking}}));
}

TEST_F(StatusBarTest, DescribesItsObjectsToTools) {
    FakePanel panel;
    ASSERT_TRUE(registers(panel));
    const QString item = panel.introspection(u"/StatusNotifierItem"_s);
    EXPECT_TRUE(
        item.contains(u"<property name=\"IconPixmap\" type=\"a(iiay)\" access=\"read\">"_s));
    EXPECT_TRUE(item.contains(u"<signal name=\"NewIcon\">"_s));
    const QString menu = panel.introspection(u"/MenuBar"_s).simplified();
    EXPECT_TRUE(
        menu.contains(u"<method name=\"GetLayout\"> <arg type=\"i\" direction=\"in\"/> "
                      "<arg type=\"i\" direction=\"in\"/> <arg type=\"as\" direction=\"in\"/> "
                      "<arg type=\"u\" direction=\"out\"/> "
                      "<arg type=\"(ia{sv}av)\" direction=\"out\"/> </method>"_s));
}

TEST_F(StatusBarTest, RefusesArgumentsOfOtherTypes) {
    FakePanel panel;
    ASSERT_TRUE(registers(panel));
    const QVariant numbers = QVariant::fromValue(QList<int>{1, 2});
    const QVariant items = QVariantMap{{u"id"_s, 1}};
    for (const auto &method :
         {u"GetLayout"_s, u"GetGroupProperties"_s, u"GetProperty"_s, u"Event"_s, u"EventGroup"_s,
          u"AboutToShow"_s, u"AboutToShowGroup"_s, u"Unheard"_s}) {
        EXPECT_FALSE(panel.callMenu(method, {})) << method.toStdString();
        EXPECT_FALSE(panel.callMenu(method, {u"text"_s, u"text"_s})) << method.toStdString();
        EXPECT_FALSE(panel.callMenu(method, {numbers, numbers})) << method.toStdString();
        EXPECT_FALSE(panel.callMenu(method, {items, QStringList()})) << method.toStdString();
    }
    EXPECT_TRUE(panel.callMenu(u"AboutToShowGroup"_s, {numbers}));
    EXPECT_FALSE(panel.line(u"Stop"_s).properties.isEmpty());
}

TEST_F(StatusBarTest, OpensItsOwnMenuForAPanelThatDoesNot) {
    FakePanel panel;
    ASSERT_TRUE(registers(panel));
    panel.activate(120, 80);
    ASSERT_TRUE(opensPopup());
    EXPECT_TRUE(openPopup()->geometry().adjusted(-2, -2, 2, 2).contains(QPoint(120, 80)));
    openPopup()->close();
}

TEST_F(StatusBarTest, OpensItAtThePointerForAPanelThatDoesNotSayWhereItWasClicked) {
    FakePanel panel;
    ASSERT_TRUE(registers(panel));
    const QPoint pointer(300, 200);
    QCursor::setPos(pointer);
    ASSERT_TRUE(turnUntil([pointer] { return QCursor::pos() == pointer; }));
    panel.activate(0, 0);
    ASSERT_TRUE(opensPopup());
    EXPECT_TRUE(openPopup()->geometry().adjusted(-2, -2, 2, 2).contains(pointer));
    openPopup()->close();
}

TEST_F(StatusBarTest, RegistersAgainWithAPanelThatRestarts) {
    auto panel = std::make_unique<FakePanel>();
    ASSERT_TRUE(registers(*panel));
    panel.reset();
    panel = std::make_unique<FakePanel>();
    ASSERT_TRUE(registers(*panel));
    EXPECT_EQ(panel->menu().children.size(), 8);
}

TEST_F(StatusBarTest, RegistersWithAPanelThatTakesThePlaceOfOneJustRefusing) {
    FakePanel old(FakePanel::Reply::error);
    std::unique_ptr<FakePanel> panel;
    old.afterReply([&] {
        old.resign();
        panel = std::make_unique<FakePanel>();
    });
    EXPECT_TRUE(turnUntil([&] { return panel && !panel->items().isEmpty(); }));
}

TEST_F(StatusBarTest, IsNotHeldUpByAPanelThatDoesNotAnswer) {
    FakePanel panel(FakePanel::Reply::none);
    ASSERT_TRUE(turnUntil([&] { return panel.requests() > 0; }));
    panel.setReply(FakePanel::Reply::yes);
    EXPECT_TRUE(turnUntil([&] { return panel.registrations() > 0; }));
}

TEST_F(StatusBarTest, WaitsForThePanelsHost) {
    FakeTray tray;
    ASSERT_TRUE(docks(tray));
    FakePanel panel(FakePanel::Reply::no);
    panel.addHost();
    ASSERT_TRUE(registers(panel));
    EXPECT_TRUE(turnUntil([&] { return tray.icons() == 0; }));
}

TEST_F(StatusBarTest, MovesBetweenPanelAndTrayAsTheyComeAndGo) {
    auto panel = std::make_unique<FakePanel>();
    ASSERT_TRUE(registers(*panel));
    FakeTray tray;
    panel.reset();
    ASSERT_TRUE(docks(tray));
    FakePanel next;
    ASSERT_TRUE(registers(next));
    EXPECT_TRUE(turnUntil([&] { return tray.icons() == 0; }));
}

TEST_F(StatusBarTest, LeavesThePanelWhenItIsDestroyed) {
    FakePanel panel;
    ASSERT_TRUE(registers(panel));
    item_.reset();
    EXPECT_FALSE(panel.itemProperty(u"Title"_s).isValid());
}

TEST_F(StatusBarTest, DocksIntoATrayThatAppearsLater) {
    item_->openMenu();
    ASSERT_TRUE(opensPopup());
    openPopup()->close();
    FakeTray tray;
    EXPECT_TRUE(docks(tray));
}

TEST_F(StatusBarTest, DocksAgainIntoATrayThatRestarts) {
    auto tray = std::make_unique<FakeTray>();
    ASSERT_TRUE(docks(*tray));
    tray.reset();
    tray = std::make_unique<FakeTray>();
    EXPECT_TRUE(docks(*tray));
}

class StatusBarButtonTest : public StatusBarTest, public testing::WithParamInterface<int> {};

TEST_P(StatusBarButtonTest, OpensTheMenuFromTheTray) {
    FakeTray tray;
    ASSERT_TRUE(docks(tray));
    ASSERT_TRUE(turnUntil([&] {
        tray.icons();
        clickIcon(GetParam());
        return openPopup() != nullptr;
    }));
    EXPECT_EQ(openPopup()->actions().size(), static_cast<qsizetype>(sampleMenu().items.size()));
    openPopup()->close();
}

INSTANTIATE_TEST_SUITE_P(Buttons, StatusBarButtonTest,
                         testing::Values(XCB_BUTTON_INDEX_1, XCB_BUTTON_INDEX_3));

TEST_F(StatusBarTest, TakesTheColourThatTheTrayPublishes) {
    FakeTray tray(QColor(0, 255, 255));
    FakePanel panel;
    ASSERT_TRUE(registers(panel));
    const auto pixmap = panel.iconPixmaps().last();
    // The bytes come most significant first: alpha, red, green, blue.
    const qsizetype bytesPerPixel = 4;
    const qsizetype arrow = pixmap.width * (pixmap.height * 15 / 24) + pixmap.width * 15 / 24;
    EXPECT_EQ(pixmap.bytes.mid(arrow * bytesPerPixel, bytesPerPixel),
              QByteArray("\xFF\x00\xFF\xFF", bytesPerPixel));
}

} // namespace

} // namespace corvane::contract
