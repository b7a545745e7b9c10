#include "platform/freedesktop/bus/SessionBus.h"
#include "servers/VirtualDesktop.h"

#include <QApplication>
#include <gtest/gtest.h>

int main(int argc, char **argv) {
    testing::InitGoogleTest(&argc, argv);
    if (GTEST_FLAG_GET(list_tests)) {
        return RUN_ALL_TESTS();
    }
    corvane::freedesktop::surviveLostBuses();
    const corvane::desktop::VirtualDesktop desktop(
        {.windowManager = corvane::desktop::WindowManager::none, .takesStatusIcons = false});
    desktop.adoptEnvironment();
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
