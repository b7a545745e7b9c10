#pragma once

#include "platform/StatusBar.h"
#include "support/OneThread.h"
#include "support/recorder/RecordedStatusItem.h"

#include <memory>
#include <optional>
#include <vector>

namespace corvane::testing {

/// A status bar without a screen; keeps every item ever made. Main thread.
class RecordingStatusBar : public platform::StatusBar {
  public:
    std::unique_ptr<platform::StatusItem>
    createItem(std::function<void(const MenuCommand &)> perform) override;

    /// What items answer when asked for their button.
    std::optional<Size> buttonSize = Size{32, 22};

    /// Whether items are shown.
    bool isPresent = true;
    /// Whether they are shown whatever `isPresent` says.
    bool isAlwaysShown = false;

    /// All items ever made, in that order, the destroyed ones included.
    const std::vector<std::shared_ptr<RecordedStatusItem>> &items() const { return items_; }

    /// The item made last. Fails the test when there is none.
    RecordedStatusItem &item() const;

  private:
    class Item;

    const OneThread mainThread_{"the status bar"};
    std::vector<std::shared_ptr<RecordedStatusItem>> items_;
};

} // namespace corvane::testing
