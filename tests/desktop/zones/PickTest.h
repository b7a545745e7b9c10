#pragma once

#include "DesktopTest.h"
#include "Marks.h"
#include "harness/actors/StatusPanel.h"

#include <string>
#include <vector>

namespace corvane::desktop {

/// A desktop on which the zone is picked with the mouse.
class PickTest : public DesktopTest {
  protected:
    explicit PickTest(const VirtualDesktop::Options &options = {}) : DesktopTest(options) {}

    /// Waits for the program's item and chooses the command.
    void choosePick();

    /// The same, and waits until a picker lies over every monitor.
    void openPicker();

    bool isPickerOpen() const;

    /// Waits until no picker is on screen and the menu says that nothing is going on.
    bool waitUntilIdle();

    /// Waits until the settings file holds the text.
    bool isSaved(const std::string &text) const;

    Screenshot screenshot() const { return Screenshot(desktop_.connection()); }

    /// Where the monitors are.
    std::vector<Area> monitors_{{0, 0, 1280, 800}};
    StatusPanel panel_{desktop_};

  private:
    bool isCovered(const Area &monitor) const;
};

} // namespace corvane::desktop
