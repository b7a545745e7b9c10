#include "platform/freedesktop/tray/StatusNotifierTypes.h"

#include <QDBusMetaType>
#include <QtEndian>

namespace corvane::freedesktop {

NotifierPixmap NotifierPixmap::of(const QImage &image) {
    const auto argb = image.convertToFormat(QImage::Format_ARGB32);
    NotifierPixmap pixmap{argb.width(), argb.height(), {}};
    pixmap.bytes.resize(argb.sizeInBytes());
    qToBigEndian<quint32>(argb.constBits(), argb.sizeInBytes() / 4, pixmap.bytes.data());
    return pixmap;
}

void registerNotifierTypes() {
    qDBusRegisterMetaType<NotifierPixmap>();
    qDBusRegisterMetaType<QList<NotifierPixmap>>();
    qDBusRegisterMetaType<NotifierToolTip>();
}

// NOLINTBEGIN(bugprone-return-const-ref-from-parameter): what the toolkit asks for

QDBusArgument &operator<<(QDBusArgument &argument, const NotifierPixmap &value) {
    argument.beginStructure();
    argument << value.width << value.height << value.bytes;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, NotifierPixmap &value) {
    argument.beginStructure();
    argument >> value.width >> value.height >> value.bytes;
    argument.endStructure();
    return argument;
}

QDBusArgument &operator<<(QDBusArgument &argument, const NotifierToolTip &value) {
    argument.beginStructure();
    argument << value.iconName << value.icon << value.title << value.text;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, NotifierToolTip &value) {
    argument.beginStructure();
    argument >> value.iconName >> value.icon >> value.title >> value.text;
    argument.endStructure();
    return argument;
}

// NOLINTEND(bugprone-return-const-ref-from-parameter)

} // namespace corvane::freedesktop
