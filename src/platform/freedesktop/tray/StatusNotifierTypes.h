#pragma once

#include <QByteArray>
#include <QDBusArgument>
#include <QImage>
#include <QList>
#include <QMetaType>
#include <QString>

namespace corvane::freedesktop {

/// (iiay): an image in ARGB, 32 bits a pixel, most significant byte first.
struct NotifierPixmap {
    int width = 0;
    int height = 0;
    QByteArray bytes;

    static NotifierPixmap of(const QImage &image);
};

/// (sa(iiay)ss): icon name, icon, title and text.
struct NotifierToolTip {
    QString iconName;
    QList<NotifierPixmap> icon;
    QString title;
    QString text;
};

/// Lets both travel; once is enough, more does no harm.
void registerNotifierTypes();

QDBusArgument &operator<<(QDBusArgument &argument, const NotifierPixmap &value);
const QDBusArgument &operator>>(const QDBusArgument &argument, NotifierPixmap &value);
QDBusArgument &operator<<(QDBusArgument &argument, const NotifierToolTip &value);
const QDBusArgument &operator>>(const QDBusArgument &argument, NotifierToolTip &value);

} // namespace corvane::freedesktop

Q_DECLARE_METATYPE(corvane::freedesktop::NotifierPixmap)
Q_DECLARE_METATYPE(corvane::freedesktop::NotifierToolTip)
