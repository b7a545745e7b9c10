#include "platform/qt/alerts/Alerts.h"

#include "EventLoop.h"
#include "LinuxBackEnd.h"
#include "platform/x11/connection/XcbEvents.h"

#include <QApplication>
#include <QDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <gtest/gtest.h>

#include <cstdint>
#include <functional>

namespace corvane::contract {

using namespace Qt::StringLiterals;

namespace {

Alert question() {
    return {.style = AlertStyle::warning,
            .messageText = "Window not found",
            .informativeText = "The anchored window \"Files & Folders\" could not be found.",
            .buttons = {"Continue", "Cancel"}};
}

Alert prompt(const std::string &text) {
    return {.messageText = "Rename Profile",
            .informativeText = "Enter a new name:",
            .buttons = {"Rename", "Cancel"},
            .field = AlertField{.size = {260, 24}, .text = text, .placeholder = "Profile name"}};
}

/// Shows the alert and, once it has the keyboard, does with it what a user would.
AlertResponse answer(const Alert &alert, const std::function<void(QDialog &)> &user) {
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, [&] {
        auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        if (dialog && dialog->isActiveWindow() && QApplication::focusWidget()) {
            watch.stop();
            user(*dialog);
            if (dialog->isVisible()) {
                ADD_FAILURE() << "the alert is still there";
                dialog->reject();
            }
        }
    });
    watch.start(5);
    LinuxBackEnd backEnd;
    return backEnd.platform().alerts().runModal(alert);
}

void strike(Qt::Key key, const QString &text = QString()) {
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        if (auto *focused = QApplication::focusWidget()) {
            QKeyEvent event(type, key, Qt::NoModifier, text);
            QApplication::sendEvent(focused, &event);
        }
    }
}

QList<QPushButton *> buttonsOf(QDialog &dialog) { return dialog.findChildren<QPushButton *>(); }

/// Whether the window manager was sent a request to activate the window, as if from a task bar.
bool isActivationRequested(const x11::XcbConnection &observer, WId window) {
    while (const x11::XcbReply<xcb_generic_event_t> event{xcb_poll_for_event(observer.get())}) {
        const auto &message = reinterpret_cast<const xcb_client_message_event_t &>(*event);
        constexpr std::uint32_t fromTaskBar = 2;
        if (x11::XcbEvents::typeOf(*event) == XCB_CLIENT_MESSAGE && message.window == window &&
            message.type == observer.atoms().activeWindow &&
            message.data.data32[0] == fromTaskBar) {
            return true;
        }
    }
    return false;
}

TEST(AlertsTest, AnswersReturnWithTheFirstButton) {
    EXPECT_EQ(answer(question(), [](QDialog &) { strike(Qt::Key_Return); }).button, 0U);
}

TEST(AlertsTest, AnswersEscapeWithTheLastButton) {
    EXPECT_EQ(answer(question(), [](QDialog &) { strike(Qt::Key_Escape); }).button, 1U);
}

TEST(AlertsTest, AnswersClosingWithTheLastButton) {
    EXPECT_EQ(answer(question(), [](QDialog &dialog) { dialog.close(); }).button, 1U);
}

TEST(AlertsTest, AnswersEachButtonWithItsPlace) {
    for (const std::size_t index : {0U, 1U}) {
        const auto response = answer(question(), [index](QDialog &dialog) {
            buttonsOf(dialog).at(static_cast<qsizetype>(index))->click();
        });
        EXPECT_EQ(response.button, index);
        EXPECT_EQ(response.isFirstButton(), index == 0);
    }
}

TEST(AlertsTest, CanBeAnsweredFromTheKeyboardAlone) {
    EXPECT_EQ(answer(question(),
                     [](QDialog &) {
                         strike(Qt::Key_Tab);
                         strike(Qt::Key_Space, u" "_s);
                     })
                  .button,
              1U);
}

TEST(AlertsTest, AnswersTheOnlyButtonInEveryWay) {
    auto alert = question();
    alert.buttons = {"OK"};
    EXPECT_EQ(answer(alert, [](QDialog &) { strike(Qt::Key_Return); }).button, 0U);
    EXPECT_EQ(answer(alert, [](QDialog &) { strike(Qt::Key_Escape); }).button, 0U);
}

TEST(AlertsTest, ShowsItsTextsLiterally) {
    answer(question(), [](QDialog &dialog) {
        const auto buttons = buttonsOf(dialog);
        ASSERT_EQ(buttons.size(), 2);
        EXPECT_EQ(buttons.at(0)->text(), u"Continue"_s);
        EXPECT_TRUE(buttons.at(0)->isDefault());
        EXPECT_LT(buttons.at(0)->x(), buttons.at(1)->x());
        QStringList texts;
        for (const auto *label : dialog.findChildren<QLabel *>()) {
            texts << label->text();
            EXPECT_NE(label->textFormat(), Qt::RichText);
        }
        EXPECT_TRUE(texts.contains(u"Window not found"_s));
        EXPECT_TRUE(
            texts.contains(u"The anchored window \"Files & Folders\" could not be found."_s));
        dialog.reject();
    });
}

TEST(AlertsTest, DoesNotTakeMarkupForMarkup) {
    auto alert = question();
    alert.informativeText = "<b>bold</b> & <img src=x>";
    alert.buttons = {"A & B", "No"};
    answer(alert, [](QDialog &dialog) {
        EXPECT_EQ(buttonsOf(dialog).at(0)->text(), u"A && B"_s);
        EXPECT_EQ(buttonsOf(dialog).at(0)->accessibleName(), u"A & B"_s);
        for (const auto *label : dialog.findChildren<QLabel *>()) {
            if (!label->text().isEmpty()) {
                EXPECT_EQ(label->textFormat(), Qt::PlainText);
            }
        }
        dialog.reject();
    });
}

TEST(AlertsTest, WrapsLongTitles) {
    auto alert = question();
    alert.informativeText = std::string(5000, 'W');
    answer(alert, [](QDialog &dialog) {
        EXPECT_LT(dialog.width(), 700);
        EXPECT_LT(dialog.height(), 700);
        dialog.reject();
    });
}

TEST(AlertsTest, StartsInTheFieldWithItsTextSelected) {
    const auto response = answer(prompt("Old name"), [](QDialog &dialog) {
        const auto *field = dialog.findChild<QLineEdit *>();
        ASSERT_NE(field, nullptr);
        EXPECT_EQ(QApplication::focusWidget(), field);
        EXPECT_EQ(field->size(), QSize(260, 24));
        EXPECT_EQ(field->placeholderText(), u"Profile name"_s);
        EXPECT_EQ(field->selectedText(), u"Old name"_s);
        EXPECT_EQ(field->accessibleName(), u"Enter a new name:"_s);
        strike(Qt::Key_A, u"a"_s);
        strike(Qt::Key_Return);
    });
    EXPECT_TRUE(response.isFirstButton());
    EXPECT_EQ(response.fieldText, "a");
}

TEST(AlertsTest, GivesTheFieldsTextBackUnchanged) {
    const auto response =
        answer(prompt("  Tom & Jerry \u00e9 "), [](QDialog &) { strike(Qt::Key_Return); });
    EXPECT_EQ(response.fieldText, "  Tom & Jerry \u00e9 ");
}

TEST(AlertsTest, HasNoFieldTextWithoutAField) {
    EXPECT_EQ(answer(question(), [](QDialog &) { strike(Qt::Key_Return); }).fieldText, "");
}

TEST(AlertsTest, LetsTheEventLoopTurnMeanwhile) {
    int turns = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&turns] { ++turns; });
    timer.start(1);
    answer(question(), [&](QDialog &dialog) {
        EXPECT_TRUE(turnUntil([&turns] { return turns > 10; }));
        dialog.reject();
    });
}

TEST(AlertsTest, AnswersAnAlertOverAnother) {
    std::size_t inner = 99;
    const auto outer = answer(question(), [&inner](QDialog &dialog) {
        inner = answer(prompt("x"), [](QDialog &) { strike(Qt::Key_Return); }).button;
        dialog.reject();
    });
    EXPECT_EQ(inner, 0U);
    EXPECT_EQ(outer.button, 1U);
}

TEST(AlertsTest, AsksTheWindowManagerForTheKeyboardAsATaskBarDoes) {
    const auto observer = x11::XcbConnection::open().value();
    const std::uint32_t mask = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    xcb_change_window_attributes(observer->get(), observer->root(), XCB_CW_EVENT_MASK, &mask);
    observer->synchronise();
    answer(question(), [&observer](QDialog &dialog) {
        EXPECT_TRUE(turnUntil([&] { return isActivationRequested(*observer, dialog.winId()); }));
        dialog.reject();
    });
}

TEST(AlertsTest, IsShownOnEveryWorkspaceAboveOtherWindows) {
    answer(question(), [](QDialog &dialog) {
        EXPECT_TRUE(dialog.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
        const auto observer = x11::XcbConnection::open().value();
        const x11::XcbReply<xcb_get_property_reply_t> reply(xcb_get_property_reply(
            observer->get(),
            xcb_get_property(observer->get(), 0, static_cast<xcb_window_t>(dialog.winId()),
                             observer->atoms().desktop, XCB_ATOM_CARDINAL, 0, 1),
            nullptr));
        ASSERT_TRUE(reply && reply->value_len == 1);
        EXPECT_EQ(*static_cast<const std::uint32_t *>(xcb_get_property_value(reply.get())),
                  0xFFFFFFFFU);
        dialog.reject();
    });
}

TEST(AlertsTest, DoesNotEndTheProgramWhenItCloses) {
    bool isEnding = false;
    const auto connection =
        QObject::connect(qApp, &QApplication::lastWindowClosed, [&isEnding] { isEnding = true; });
    answer(question(), [](QDialog &) { strike(Qt::Key_Escape); });
    QApplication::processEvents();
    QObject::disconnect(connection);
    EXPECT_FALSE(isEnding);
}

TEST(AlertsTest, EndsWithTheProgramAnsweringWithTheLastButton) {
    AlertResponse response;
    QTimer::singleShot(0, qApp, [&response] {
        QTimer::singleShot(50, qApp, &QCoreApplication::quit);
        response = qt::Alerts(qt::OwnWindows()).runModal(question());
    });
    QApplication::exec();
    EXPECT_EQ(response.button, 1U);
}

} // namespace

} // namespace corvane::contract
