#pragma once

#include "model/CorvaneConfig.h"
#include "services/WindowResolver.h"
#include "ui/SettingsTab.h"

#include <cstddef>
#include <cstdint>
#include <functional>

namespace corvane {

namespace platform {
class Alerts;
class Applications;
class LoginItem;
} // namespace platform

/// Edits a copy of the configuration, handed over by "OK"; starting at login takes effect at once.
class GeneralTab : public SettingsTab {
  public:
    /// Everything but the configuration outlives the tab.
    GeneralTab(CorvaneConfig config, platform::LoginItem &loginItem, platform::Alerts &alerts,
               platform::Applications &applications, const WindowResolver &windowResolver);

    /// Applies and saves the edited configuration.
    Handler<CorvaneConfig> onSave;
    /// Lets the user draw a zone.
    Handler<> onSelectZone;
    /// The user has removed the anchor.
    Handler<> onRemoveAnchor;

    View body() override;

  private:
    View modeCard();
    View zoneRow();
    View anchorToggle();
    View anchorLine(const WindowAnchor &anchor) const;
    View rateCard();
    View limitCard();
    View loginToggle();
    View okButton();

    void setClickMode(std::size_t index);
    void setClickRate(std::int64_t rate);
    void setTimeUnit(std::size_t index);
    void setMaxClicks(std::int64_t limit);
    void setAnchored(bool isAnchored);
    void setStartAtLogin(bool isOn);
    void anchorToWindow();
    void removeAnchor();

    CorvaneConfig config_;
    bool startAtLogin_;
    platform::LoginItem &loginItem_;
    platform::Alerts &alerts_;
    platform::Applications &applications_;
    const WindowResolver &windowResolver_;
};

} // namespace corvane
