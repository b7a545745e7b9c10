#include "platform/macos/logic/MenuPresenter.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace corvane::macos {

namespace {

/// Whether one menu can take on the other's texts and states without gaining or losing a line.
bool haveSameLines(const std::vector<MenuItem> &items, const std::vector<MenuItem> &others) {
    return std::ranges::equal(items, others, [](const MenuItem &item, const MenuItem &other) {
        return item.isSeparator == other.isSeparator &&
               item.submenu.has_value() == other.submenu.has_value() &&
               (!item.submenu || haveSameLines(*item.submenu, *other.submenu));
    });
}

} // namespace

void MenuPresenter::show(const Menu &menu) {
    newest_ = menu;
    if (shown_ && haveSameLines(shown_->items, newest_.items)) {
        verbs_.update(std::exchange(*shown_, newest_), newest_);
    } else if (!isOpen_) {
        replace();
    }
}

void MenuPresenter::menuClosed() {
    isOpen_ = false;
    if (shown_ != newest_) {
        replace();
    }
}

void MenuPresenter::replace() {
    verbs_.replace(newest_);
    shown_ = newest_;
}

} // namespace corvane::macos
