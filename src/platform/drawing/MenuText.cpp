#include "platform/drawing/MenuText.h"

#include "platform/drawing/DisplayText.h"
#include "presentation/KeyHint.h"

#include <QFontMetrics>
#include <QGuiApplication>
#include <QScreen>

#include <algorithm>
#include <array>
#include <limits>
#include <optional>

namespace corvane::drawing {

namespace {

struct Modifier {
    char16_t sign;
    const char *name;
};

/// In the order in which they are named.
constexpr std::array modifiers{Modifier{u'\u2318', "Super"}, Modifier{u'\u2303', "Control"},
                               Modifier{u'\u2325', "Alt"}, Modifier{u'\u21E7', "Shift"}};

/// The keys of a hint such as "⇧⌘Y"; nothing when the text is not one.
std::optional<QStringList> hintKeys(const QString &hint) {
    auto key = hint;
    QStringList keys;
    for (const auto &modifier : modifiers) {
        if (key.contains(QChar(modifier.sign))) {
            keys << QString::fromLatin1(modifier.name);
            key.remove(QChar(modifier.sign));
        }
    }
    if (keys.isEmpty() || key.isEmpty()) {
        return std::nullopt;
    }
    return keys << key;
}

} // namespace

std::string startStopKeyName() {
    const auto hint = QString::fromUtf8(startStopKeyHint);
    return hintKeys(hint).value_or(QStringList(hint)).join(u'+').toStdString();
}

MenuText menuText(const MenuItem &item) {
    auto title = QString::fromStdString(item.title);
    QStringList keys;
    const auto tab = title.indexOf(u'\t');
    if (tab >= 0) {
        if (const auto hint = hintKeys(title.sliced(tab + 1))) {
            keys = *hint;
            title.truncate(tab);
        }
    }
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
