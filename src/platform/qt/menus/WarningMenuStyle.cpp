#include "platform/qt/menus/WarningMenuStyle.h"

#include "platform/qt/controls/ViewStyling.h"

#include <QAction>
#include <QMenu>
#include <QStyleOptionMenuItem>

namespace corvane::qt {

namespace {

QColor warningColour(const QPalette &palette) {
    return isDark(palette) ? QColor(0xff, 0x7b, 0x72) : QColor(0xc4, 0x1e, 0x2a);
}

} // namespace

WarningMenuStyle::WarningMenuStyle(QMenu *menu) { setParent(menu); }

void WarningMenuStyle::drawControl(ControlElement element, const QStyleOption *option,
                                   QPainter *painter, const QWidget *widget) const {
    const auto *item = qstyleoption_cast<const QStyleOptionMenuItem *>(option);
    const auto *menu = qobject_cast<const QMenu *>(widget);
    const QAction *action = item && menu ? menu->actionAt(item->rect.center()) : nullptr;
    if (element != CE_MenuItem || !action || !action->property(isWarning).toBool()) {
        QProxyStyle::drawControl(element, option, painter, widget);
        return;
    }
    QStyleOptionMenuItem warning(*item);
    for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText}) {
        warning.palette.setColor(role, warningColour(warning.palette));
    }
    QProxyStyle::drawControl(element, &warning, painter, widget);
}

} // namespace corvane::qt
