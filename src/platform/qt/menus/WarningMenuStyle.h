#pragma once

#include <QProxyStyle>

class QMenu;

namespace corvane::qt {

/// The style in use, but with some of a menu's items in the colour of a warning.
class WarningMenuStyle : public QProxyStyle {
  public:
    /// The name of an action's property that is true for such an item.
    static constexpr const char *isWarning = "isWarning";

    /// Belongs to the menu.
    explicit WarningMenuStyle(QMenu *menu);

    void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                     const QWidget *widget) const override;
};

} // namespace corvane::qt
