#include "platform/wayland/click/ButtonSource.h"

namespace corvane::wayland {

namespace {

class ButtonEvent : public platform::MouseEvent {
  public:
    ButtonEvent(ButtonSource::SetButton setButton, platform::MouseEventType type)
        : setButton_(std::move(setButton)),
          type_(type) {}

    /// The compositor's clients count clicks themselves, from the time between them.
    void setClickState(std::int64_t /*state*/) override {}

    void post() override { setButton_(type_ == platform::MouseEventType::leftMouseDown); }

  private:
    const ButtonSource::SetButton setButton_;
    const platform::MouseEventType type_;
};

} // namespace

std::unique_ptr<platform::MouseEvent> ButtonSource::createMouseEvent(platform::MouseEventType type,
                                                                     Point /*location*/) {
    return std::make_unique<ButtonEvent>(setButton_, type);
}

} // namespace corvane::wayland
