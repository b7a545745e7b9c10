#include "platform/drawing/MenuText.h"

#include "platform/drawing/DisplayText.h"

#include <QFontMetrics>
#include <QGuiApplication>
#include <QScreen>

#include <algorithm>
#include <limits>

namespace corvane::drawing {

namespace {

/// Modifiers first.
QStringList keysOf(const HotKey &hotKey) {
    QStringList keys;
    if (hotKey.command) {
        keys << QStringLiteral("Super");
    }
    if (hotKey.shift) {
        keys << QStringLiteral("Shift");
    }
    return keys << QString(QLatin1Char(hotKey.letter));
}

} // namespace

std::string hotKeyText(const HotKey &hotKey) { return keysOf(hotKey).join(u'+').toStdString(); }

MenuText menuText(const MenuItem &item) {
    const auto title = QString::fromStdString(item.title);
    QStringList keys = item.hotKey ? keysOf(*item.hotKey) : QStringList();
    if (!item.commandKey.empty()) {
        keys = {QStringLiteral("Control"), QString::fromStdString(item.commandKey).toUpper()};
    }
    return {onOneLine(title), keys};
}

MenuText fittedToScreens(MenuText text) {
    // Short enough for any screen, and most titles are: measuring them would cost more than the
    // rest of an update.
    constexpr qsizetype shortLabel = 64;
    // The rest of a screen is left to the menu's images and keys and to the menu it opens from.
    constexpr double share = 0.75;
    if (text.label.size() > shortLabel) {
        int width = std::numeric_limits<int>::max();
        for (const QScreen *screen : QGuiApplication::screens()) {
            width = std::min(width, screen->availableGeometry().width());
        }
        const QFontMetrics metrics(QGuiApplication::font());
        text.label =
            metrics.elidedText(text.label, Qt::ElideRight, static_cast<int>(share * width));
    }
    return text;
}

QString popupText(const MenuText &text) {
    auto shown = withoutMnemonic(text.label);
    if (!text.keys.isEmpty()) {
        auto keys = text.keys;
        keys.replaceInStrings(QStringLiteral("Control"), QStringLiteral("Ctrl"));
        shown += u'\t' + keys.join(u'+');
    }
    return shown;
}

QString panelLabel(const MenuText &text) {
    auto shown = text.label;
    return shown.replace(u'_', QStringLiteral("__"));
}

QStringList panelKeys(const MenuText &text) {
    auto keys = text.keys;
    keys.replaceInStrings(QStringLiteral(","), QStringLiteral("comma"));
    return keys;
}

} // namespace corvane::drawing
