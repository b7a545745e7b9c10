#include "platform/qt/settings/FocusKeeper.h"

namespace corvane::qt {

std::vector<QWidget *> tabStops(const QWidget &window) {
    std::vector<QWidget *> stops;
    for (QWidget *widget : window.findChildren<QWidget *>()) {
        // A control's menu is a child too, but a window of its own.
        if ((widget->focusPolicy() & Qt::TabFocus) != 0 && widget->isVisibleTo(&window) &&
            widget->window() == &window) {
            stops.push_back(widget);
        }
    }
    return stops;
}

FocusKeeper::FocusKeeper(const QWidget &window) : window_(window) {
    for (QWidget *stop : tabStops(window)) {
        if (stop == window.focusWidget()) {
            focused_ = controls_.size();
        }
        controls_.emplace_back(stop);
    }
}

void FocusKeeper::restore() const {
    if (!focused_ || canTakeKeyboard(controls_[*focused_])) {
        return;
    }
    if (QWidget *next = neighbour(*focused_)) {
        next->setFocus(Qt::OtherFocusReason);
    }
}

bool FocusKeeper::canTakeKeyboard(const QPointer<QWidget> &control) const {
    return control && control->isEnabled() && control->isVisibleTo(&window_);
}

QWidget *FocusKeeper::neighbour(std::size_t focused) const {
    for (std::size_t index = focused + 1; index < controls_.size(); ++index) {
        if (canTakeKeyboard(controls_[index])) {
            return controls_[index];
        }
    }
    for (std::size_t index = focused; index > 0; --index) {
        if (canTakeKeyboard(controls_[index - 1])) {
            return controls_[index - 1];
        }
    }
    return nullptr;
}

} // namespace corvane::qt
