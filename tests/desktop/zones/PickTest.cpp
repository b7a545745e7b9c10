#include "PickTest.h"

#include "harness/TextFile.h"
#include "harness/probes/WindowTree.h"

#include <algorithm>

namespace corvane::desktop {

void PickTest::choosePick() {
    ASSERT_TRUE(panel_.waitForItem());
    ASSERT_TRUE(panel_.choose("Define zone..."));
}

void PickTest::openPicker() {
    choosePick();
    ASSERT_TRUE(waitUntil([this] {
        return std::ranges::all_of(monitors_,
                                   [this](const Area &monitor) { return isCovered(monitor); });
    }));
}

bool PickTest::isCovered(const Area &monitor) const {
    return std::ranges::any_of(corvaneWindows(desktop_.connection()),
                               [&monitor](const SeenWindow &window) {
                                   return window.isOverride && window.area == monitor;
                               });
}

bool PickTest::isPickerOpen() const {
    return std::ranges::any_of(monitors_,
                               [this](const Area &monitor) { return isCovered(monitor); });
}

bool PickTest::waitUntilIdle() {
    return waitUntil([this] { return !isPickerOpen() && panel_.menu().front().title == "Idle"; });
}

bool PickTest::isSaved(const std::string &text) const {
    return waitUntil(
        [&] { return readFile(settingsFile(desktop_)).find(text) != std::string::npos; });
}

} // namespace corvane::desktop
