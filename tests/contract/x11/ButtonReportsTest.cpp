#include "EventLoop.h"
#include "XClient.h"
#include "platform/x11/connection/QtConnection.h"
#include "platform/x11/connection/Xcb.h"

#include <QAbstractNativeEventFilter>
#include <QCoreApplication>
#include <QGuiApplication>
#include <gtest/gtest.h>

namespace corvane::contract {

namespace {

/// Counts the XKB StateNotify events that Qt receives.
class KeyboardListener : public QAbstractNativeEventFilter {
  public:
    KeyboardListener() { QCoreApplication::instance()->installNativeEventFilter(this); }
    ~KeyboardListener() override { QCoreApplication::instance()->removeNativeEventFilter(this); }
    KeyboardListener(const KeyboardListener &) = delete;
    KeyboardListener &operator=(const KeyboardListener &) = delete;

    bool nativeEventFilter(const QByteArray & /*eventType*/, void *message,
                           qintptr * /*result*/) override {
        const auto &event = *static_cast<const xcb_generic_event_t *>(message);
        if (event.response_type == extensionEvent_ && event.pad0 == XCB_XKB_STATE_NOTIFY) {
            const auto &state = reinterpret_cast<const xcb_xkb_state_notify_event_t &>(event);
            ++reports_;
            lockedModifiers_ = state.lockedMods;
        }
        return false;
    }

    int reports() const { return reports_; }
    int lockedModifiers() const { return lockedModifiers_; }

  private:
    static std::uint8_t firstEvent() {
        auto *connection =
            qGuiApp->nativeInterface<QNativeInterface::QX11Application>()->connection();
        return xcb_get_extension_data(connection, &xcb_xkb_id)->first_event;
    }

    const std::uint8_t extensionEvent_ = firstEvent();
    int reports_ = 0;
    int lockedModifiers_ = 0;
};

TEST(ButtonReportsTest, OnlyModifiersAreReportedFromTheKeyboard) {
    x11::dropButtonReportsOfKeyboard();
    XClient user;
    const KeyboardListener listener;
    user.pointer().click();
    user.pointer().click();
    // What happens later is reported later: behind this one no other is on its way.
    user.lockModifiers(XCB_MOD_MASK_LOCK, true);
    EXPECT_TRUE(turnUntil([&] { return listener.lockedModifiers() == XCB_MOD_MASK_LOCK; }));
    EXPECT_EQ(listener.reports(), 1);
    user.lockModifiers(XCB_MOD_MASK_LOCK, false);
    EXPECT_TRUE(turnUntil([&] { return listener.lockedModifiers() == 0; }));
}

} // namespace

} // namespace corvane::contract
