#pragma once

#include "presentation/Menu.h"

#include <functional>
#include <optional>

namespace corvane::macos {

/// Decides how a native menu comes to show a menu: in place where the lines stay the same ones,
/// otherwise by another native menu, which would close an open one and therefore waits until it has
/// closed. Main thread.
class MenuPresenter {
  public:
    struct Verbs {
        /// Puts a native menu with those items in the place of the present one.
        std::function<void(const Menu &menu)> replace;
        /// Changes texts and states from those of `shown` to those of `next`, which has as many
        /// lines of the same kinds.
        std::function<void(const Menu &shown, const Menu &next)> update;
    };

    explicit MenuPresenter(Verbs verbs) : verbs_(std::move(verbs)) {}

    void show(const Menu &menu);

    void menuOpened() { isOpen_ = true; }
    void menuClosed();

  private:
    void replace();

    const Verbs verbs_;
    bool isOpen_ = false;
    std::optional<Menu> shown_;
    Menu newest_;
};

} // namespace corvane::macos
