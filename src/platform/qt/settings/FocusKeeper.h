#pragma once

#include <QPointer>
#include <QWidget>

#include <cstddef>
#include <optional>
#include <vector>

namespace corvane::qt {

/// The controls of a window that the Tab key leads to, as they are seen.
std::vector<QWidget *> tabStops(const QWidget &window);

/// Keeps the keyboard near where it was while the content of a window changes.
class FocusKeeper {
  public:
    /// Before the change. The window outlives it.
    explicit FocusKeeper(const QWidget &window);

    /// After the change: where the control that had the keyboard is gone or disabled, gives the
    /// keyboard to the next one that was there before too, or else to the one before it.
    void restore() const;

  private:
    bool canTakeKeyboard(const QPointer<QWidget> &control) const;
    QWidget *neighbour(std::size_t focused) const;

    const QWidget &window_;
    std::vector<QPointer<QWidget>> controls_;
    std::optional<std::size_t> focused_;
};

} // namespace corvane::qt
