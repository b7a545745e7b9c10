#include "platform/freedesktop/tray/StatusNotifierItem.h"

#include "platform/freedesktop/tray/StatusNotifierTypes.h"

#include <QCoreApplication>
#include <QDBusObjectPath>
#include <QTimer>

#include <utility>

namespace corvane::freedesktop {

StatusNotifierItem::StatusNotifierItem(const QDBusConnection &connection, QString menuPath,
                                       std::function<void(QPoint)> activate)
    : DBusObject(connection, QStringLiteral("/StatusNotifierItem"),
                 QStringLiteral("org.kde.StatusNotifierItem")),
      menuPath_(std::move(menuPath)),
      activate_(std::move(activate)),
      pixmaps_(QVariant::fromValue(QList<NotifierPixmap>{})) {
    registerNotifierTypes();
}

void StatusNotifierItem::setIcon(const QList<QImage> &images, const QString &description) {
    QList<NotifierPixmap> pixmaps;
    for (const auto &image : images) {
        pixmaps << NotifierPixmap::of(image);
    }
    pixmaps_ = QVariant::fromValue(pixmaps);
    emitSignal(QStringLiteral("NewIcon"));
    if (description_ != description) {
        description_ = description;
        emitSignal(QStringLiteral("NewTitle"));
    }
}

void StatusNotifierItem::setToolTip(const QString &text) {
    toolTip_ = text;
    emitSignal(QStringLiteral("NewToolTip"));
}

DBusObject::Signatures StatusNotifierItem::methods() const {
    const auto place = QStringLiteral("ii");
    return {{QStringLiteral("Activate"), place},
            {QStringLiteral("ContextMenu"), place},
            {QStringLiteral("SecondaryActivate"), place},
            {QStringLiteral("Scroll"), QStringLiteral("is")},
            {QStringLiteral("ProvideXdgActivationToken"), QStringLiteral("s")}};
}

std::optional<QVariantList> StatusNotifierItem::call(const QString &method,
                                                     const QVariantList &arguments) {
    if (method == QLatin1String("Activate") || method == QLatin1String("ContextMenu") ||
        method == QLatin1String("SecondaryActivate")) {
        const QPoint place(arguments.value(0).toInt(), arguments.value(1).toInt());
        QTimer::singleShot(0, this, [activate = activate_, place] { activate(place); });
        return QVariantList{};
    }
    if (method == QLatin1String("Scroll") || method == QLatin1String("ProvideXdgActivationToken")) {
        return QVariantList{};
    }
    return std::nullopt;
}

QVariantMap StatusNotifierItem::properties() const {
    const auto noPixmaps = QVariant::fromValue(QList<NotifierPixmap>{});
    return {{QStringLiteral("Category"), QStringLiteral("ApplicationStatus")},
            {QStringLiteral("Id"), QCoreApplication::applicationName()},
            {QStringLiteral("Title"), description_},
            {QStringLiteral("Status"), QStringLiteral("Active")},
            {QStringLiteral("WindowId"), 0},
            {QStringLiteral("IconThemePath"), QString()},
            {QStringLiteral("IconName"), QString()},
            {QStringLiteral("IconPixmap"), pixmaps_},
            {QStringLiteral("OverlayIconName"), QString()},
            {QStringLiteral("OverlayIconPixmap"), noPixmaps},
            {QStringLiteral("AttentionIconName"), QString()},
            {QStringLiteral("AttentionIconPixmap"), noPixmaps},
            {QStringLiteral("AttentionMovieName"), QString()},
            {QStringLiteral("ToolTip"), QVariant::fromValue(NotifierToolTip{.title = toolTip_})},
            {QStringLiteral("ItemIsMenu"), true},
            {QStringLiteral("Menu"), QVariant::fromValue(QDBusObjectPath(menuPath_))}};
}

QString StatusNotifierItem::introspect(const QString & /*path*/) const {
    return QStringLiteral(R"xml(<interface name="org.kde.StatusNotifierItem">
  <property name="Category" type="s" access="read"/>
  <property name="Id" type="s" access="read"/>
  <property name="Title" type="s" access="read"/>
  <property name="Status" type="s" access="read"/>
  <property name="WindowId" type="i" access="read"/>
  <property name="IconThemePath" type="s" access="read"/>
  <property name="IconName" type="s" access="read"/>
  <property name="IconPixmap" type="a(iiay)" access="read"/>
  <property name="OverlayIconName" type="s" access="read"/>
  <property name="OverlayIconPixmap" type="a(iiay)" access="read"/>
  <property name="AttentionIconName" type="s" access="read"/>
  <property name="AttentionIconPixmap" type="a(iiay)" access="read"/>
  <property name="AttentionMovieName" type="s" access="read"/>
  <property name="ToolTip" type="(sa(iiay)ss)" access="read"/>
  <property name="ItemIsMenu" type="b" access="read"/>
  <property name="Menu" type="o" access="read"/>
  <method name="Activate">
    <arg name="x" type="i" direction="in"/>
    <arg name="y" type="i" direction="in"/>
  </method>
  <method name="SecondaryActivate">
    <arg name="x" type="i" direction="in"/>
    <arg name="y" type="i" direction="in"/>
  </method>
  <method name="ContextMenu">
    <arg name="x" type="i" direction="in"/>
    <arg name="y" type="i" direction="in"/>
  </method>
  <method name="Scroll">
    <arg name="delta" type="i" direction="in"/>
    <arg name="orientation" type="s" direction="in"/>
  </method>
  <method name="ProvideXdgActivationToken">
    <arg name="token" type="s" direction="in"/>
  </method>
  <signal name="NewTitle"/>
  <signal name="NewIcon"/>
  <signal name="NewToolTip"/>
</interface>
)xml");
}

} // namespace corvane::freedesktop
