#pragma once

#include "presentation/View.h"

class QWidget;

namespace corvane::qt {

/// How a widget takes a view over.
enum class Rendering {
    /// What the user was typing is dropped.
    fresh,
    /// What the user was typing stays.
    update
};

/// A widget that shows one view and goes on to show others of the same kind. Main thread.
class ViewWidget {
  public:
    virtual ~ViewWidget() = default;

    virtual QWidget &widget() = 0;

    /// Shows the view, which is of the kind the widget was made for, and calls its handlers from
    /// now on. Calls none of them itself.
    virtual void render(const View &view, Rendering rendering) = 0;
};

} // namespace corvane::qt
