#pragma once

#include "presentation/Handler.h"
#include "presentation/View.h"

#include <functional>
#include <memory>
#include <utility>

namespace corvane {

/// The width of the settings window and of every tab, points.
inline constexpr double settingsWindowWidth = 540;

/// One tab of the settings window: a state, and the view that shows it. Main thread. Shared, so
/// that a tab whose dialog is open survives being replaced meanwhile.
class SettingsTab : public std::enable_shared_from_this<SettingsTab> {
  public:
    virtual ~SettingsTab() = default;

    SettingsTab(const SettingsTab &) = delete;
    SettingsTab &operator=(const SettingsTab &) = delete;

    /// The whole tab in its present state; the handlers hold the tab weakly.
    virtual View body() = 0;

    /// Called after each change of state, so that whoever shows the tab fetches its body again.
    Handler<> onChange;

  protected:
    SettingsTab() = default;

    /// A callback that does nothing once the tab is gone.
    template <typename Tab, typename Work>
    static auto weakly(Tab *tab, Work work) {
        return [held = tab->weak_from_this(), work = std::move(work)](const auto &...arguments) {
            if (const auto self = held.lock()) {
                std::invoke(work, static_cast<Tab &>(*self), arguments...);
            }
        };
    }
};

} // namespace corvane
