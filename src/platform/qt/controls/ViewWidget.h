#pragma once

#include "platform/views/ViewMatching.h"
#include "presentation/View.h"

class QWidget;

namespace corvane::drawing {

class SymbolImages;

} // namespace corvane::drawing

namespace corvane::qt {

/// What happens to text that the user has typed when a widget shows a new view.
enum class Rendering { discardsTyping, keepsTyping };

/// A widget that shows one view after another, all of the same kind. Main thread.
class ViewWidget {
  public:
    virtual ~ViewWidget() = default;

    virtual QWidget &widget() = 0;

    /// Shows the view, which is of the kind the widget was made for, and calls its handlers from
    /// now on. Calls none of them itself.
    virtual void render(const View &view, Rendering rendering) = 0;
};

/// What two views must have in common to be shown, one after the other, by the same widget.
struct WidgetKind {
    views::ViewKind view;
    /// Inside a box, because the content's own widget has no padding or background.
    bool isBoxed = false;

    bool operator==(const WidgetKind &) const = default;
};

WidgetKind kindOf(const View &view);

/// A widget for views of this kind, which does not show this one yet. The caller owns it until it
/// has a parent. `symbols` outlives it.
ViewWidget *makeViewWidget(const View &view, drawing::SymbolImages &symbols);

/// Whether the view takes all the width there is.
bool fillsWidth(const View &view);

} // namespace corvane::qt
