#include "EventLoop.h"

#include <QAbstractEventDispatcher>
#include <QElapsedTimer>
#include <QTimer>

namespace corvane::contract {

namespace {

/// One sleep of the event loop, ended after a moment where nothing else ends it.
void turn(int milliseconds) {
    QTimer alarm;
    alarm.setSingleShot(true);
    alarm.start(milliseconds);
    QAbstractEventDispatcher::instance()->processEvents(QEventLoop::WaitForMoreEvents);
}

} // namespace

bool turnUntil(const std::function<bool()> &condition) {
    constexpr qint64 patienceMilliseconds = 20000;
    constexpr int pauseMilliseconds = 5;
    QElapsedTimer elapsed;
    elapsed.start();
    while (!condition()) {
        if (elapsed.elapsed() > patienceMilliseconds) {
            return false;
        }
        turn(pauseMilliseconds);
    }
    return true;
}

void settle(const x11::XcbEvents &events) {
    // Behind the answer nothing older is on its way; before it sleeps, the loop delivers it all.
    events.connection().synchronise();
    bool hasSlept = false;
    const auto slept =
        QObject::connect(QAbstractEventDispatcher::instance(),
                         &QAbstractEventDispatcher::aboutToBlock, [&hasSlept] { hasSlept = true; });
    turnUntil([&hasSlept] { return hasSlept; });
    QObject::disconnect(slept);
}

} // namespace corvane::contract
