#include "platform/freedesktop/tray/StatusNotifierItem.h"

#include <QCoreApplication>
#include <QDBusObjectPath>
#include <QTimer>
#include <QtEndian>

#include <utility>

namespace corvane::freedesktop {

using namespace Qt::StringLiterals;

namespace {

/// (iiay): an image in ARGB, 32 bits a pixel, most significant byte first.
struct Pixmap {
    int width = 0;
    int height = 0;
    QByteArray bytes;
};

/// (sa(iiay)ss)
struct ToolTip {
    QString iconName;
    QList<Pixmap> icon;
    QString title;
    QString text;
};

QDBusArgument &operator<<(QDBusArgument &argument, const Pixmap &value) {
    argument.beginStructure();
    argument << value.width << value.height << value.bytes;
    argument.endStructure();
    return argument;
}

QDBusArgument &operator<<(QDBusArgument &argument, const ToolTip &value) {
    argument.beginStructure();
    argument << value.iconName << value.icon << value.title << value.text;
    argument.endStructure();
    return argument;
}

void registerTypes() {
    registerSentType<Pixmap>();
    registerSentType<QList<Pixmap>>();
    registerSentType<ToolTip>();
}

Pixmap pixmapOf(const QImage &image) {
    const auto argb = image.convertToFormat(QImage::Format_ARGB32);
    Pixmap pixmap{argb.width(), argb.height(), {}};
    pixmap.bytes.resize(argb.sizeInBytes());
    qToBigEndian<quint32>(argb.constBits(), argb.sizeInBytes() / 4, pixmap.bytes.data());
    return pixmap;
}

} // namespace

StatusNotifierItem::StatusNotifierItem(const QDBusConnection &connection, QString menuPath,
                                       std::function<void(QPoint)> activate)
    : DBusObject(connection, u"/StatusNotifierItem"_s, u"org.kde.StatusNotifierItem"_s),
      menuPath_(std::move(menuPath)),
      pixmaps_(QVariant::fromValue(QList<Pixmap>{})) {
    registerTypes();
    const auto click = [this, activate = std::move(activate)](const QVariantList &position) {
        const QPoint point(position.value(0).toInt(), position.value(1).toInt());
        QTimer::singleShot(0, this, [activate, point] { activate(point); });
        return Reply(QVariantList{});
    };
    const auto ignore = [](const QVariantList &) { return Reply(QVariantList{}); };
    offer({{u"Activate"_s, u"ii"_s, {}, click},
           {u"ContextMenu"_s, u"ii"_s, {}, click},
           {u"SecondaryActivate"_s, u"ii"_s, {}, click},
           {u"Scroll"_s, u"is"_s, {}, ignore},
           {u"ProvideXdgActivationToken"_s, u"s"_s, {}, ignore}},
          {{u"NewTitle"_s, {}}, {u"NewIcon"_s, {}}, {u"NewToolTip"_s, {}}});
}

void StatusNotifierItem::setIcon(const QList<QImage> &images, const QString &description) {
    QList<Pixmap> pixmaps;
    for (const auto &image : images) {
        pixmaps << pixmapOf(image);
    }
    pixmaps_ = QVariant::fromValue(pixmaps);
    emitSignal(u"NewIcon"_s);
    if (description_ != description) {
        description_ = description;
        emitSignal(u"NewTitle"_s);
    }
}

void StatusNotifierItem::setToolTip(const QString &text) {
    toolTip_ = text;
    emitSignal(u"NewToolTip"_s);
}

/// ItemIsMenu makes a left click open the menu, as on other desktops.
QVariantMap StatusNotifierItem::properties() const {
    const auto noPixmaps = QVariant::fromValue(QList<Pixmap>{});
    return {{u"Category"_s, u"ApplicationStatus"_s},
            {u"Id"_s, QCoreApplication::applicationName()},
            {u"Title"_s, description_},
            {u"Status"_s, u"Active"_s},
            {u"WindowId"_s, 0},
            {u"IconThemePath"_s, QString()},
            {u"IconName"_s, QString()},
            {u"IconPixmap"_s, pixmaps_},
            {u"OverlayIconName"_s, QString()},
            {u"OverlayIconPixmap"_s, noPixmaps},
            {u"AttentionIconName"_s, QString()},
            {u"AttentionIconPixmap"_s, noPixmaps},
            {u"AttentionMovieName"_s, QString()},
            {u"ToolTip"_s, QVariant::fromValue(ToolTip{.title = toolTip_})},
            {u"ItemIsMenu"_s, true},
            {u"Menu"_s, QVariant::fromValue(QDBusObjectPath(menuPath_))}};
}

} // namespace corvane::freedesktop
