#pragma once

#include "platform/freedesktop/bus/BusObject.h"

#include <QImage>
#include <QList>
#include <QObject>
#include <QPoint>

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace corvane::freedesktop {

/// A status item that the desktop's panel shows, over org.kde.StatusNotifierItem. Main thread.
class StatusNotifierItem : public BusObject {
  public:
    /// `menuPath` is the object path of the item's menu on the same connection. `activate` is
    /// called, in a later event-loop iteration, when a panel leaves showing the menu to the
    /// program; the point is the click's position in global pixels, or null where the panel does
    /// not know it.
    StatusNotifierItem(BusConnection &bus, std::string menuPath,
                       std::function<void(QPoint)> activate);

    /// `images` are one picture in several sizes, `description` is its name for screen readers.
    void setIcon(const QList<QImage> &images, const std::string &description);

    void setToolTip(const std::string &text);

  private:
    /// (iiay): an image in ARGB, 32 bits a pixel, most significant byte first.
    struct Pixmap {
        int width = 0;
        int height = 0;
        std::vector<std::byte> bytes;
    };

    static Pixmap pixmapOf(const QImage &image);
    static void write(BusMessage &message, const std::vector<Pixmap> &pixmaps);

    static const sd_bus_vtable table[]; // NOLINT(modernize-avoid-c-arrays): as sd-bus takes it
    bool click(BusMessage &call, BusMessage &reply);
    bool ignore(BusMessage &call, BusMessage &reply);

    const std::string menuPath_;
    const std::function<void(QPoint)> activate_;
    std::vector<Pixmap> pixmaps_;
    std::string description_;
    std::string toolTip_;
    /// The context of clicks that are still to be handled.
    QObject pending_;
};

} // namespace corvane::freedesktop
