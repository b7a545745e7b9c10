#pragma once

#include <QPointer>
#include <QWidget>

#include <cstddef>
#include <optional>
#include <vector>

namespace corvane::qt {

/// The controls of a window that the Tab key visits, in visual order.
std::vector<QWidget *> tabStops(const QWidget &window);

/// Keeps the keyboard focus near where it was while the content of a window changes.
class FocusKeeper {
  public:
    /// Before the change. The window outlives it.
    explicit FocusKeeper(const QWidget &window);

    /// After the change: if the focused control is gone or disabled, focuses the next one of those
    /// that were there before, else the previous one.
    void restore() const;

  private:
    bool canTakeKeyboard(const QPointer<QWidget> &control) const;
    QWidget *neighbour(std::size_t focused) const;

    const QWidget &window_;
    std::vector<QPointer<QWidget>> controls_;
    std::optional<std::size_t> focused_;
};

} // namespace corvane::qt
