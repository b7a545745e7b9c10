#include "platform/freedesktop/tray/StatusNotifierItem.h"

#include <QTimer>
#include <QtEndian>

#include <utility>

namespace corvane::freedesktop {

namespace {

template <auto write>
constexpr sd_bus_property_get_t get = readProperty<StatusNotifierItem, write>;

using Item = const StatusNotifierItem &;

void writeNothing(Item /*item*/, BusMessage &reply) { reply.write(""); }

void writeNoPixmaps(Item /*item*/, BusMessage &reply) {
    reply.writeArray("(iiay)", [] {});
}

} // namespace

/// ItemIsMenu makes a left click open the menu, as on other desktops.
const sd_bus_vtable StatusNotifierItem::table[] = { // NOLINT(modernize-avoid-c-arrays)
    SD_BUS_VTABLE_START(0),
    SD_BUS_METHOD("Activate", "ii", "",
                  (handleCall<StatusNotifierItem, &StatusNotifierItem::click>),
                  SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD("ContextMenu", "ii", "",
                  (handleCall<StatusNotifierItem, &StatusNotifierItem::click>),
                  SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD("SecondaryActivate", "ii", "",
                  (handleCall<StatusNotifierItem, &StatusNotifierItem::click>),
                  SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD("Scroll", "is", "", (handleCall<StatusNotifierItem, &StatusNotifierItem::ignore>),
                  SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD("ProvideXdgActivationToken", "s", "",
                  (handleCall<StatusNotifierItem, &StatusNotifierItem::ignore>),
                  SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_SIGNAL("NewTitle", "", 0),
    SD_BUS_SIGNAL("NewIcon", "", 0),
    SD_BUS_SIGNAL("NewToolTip", "", 0),
    SD_BUS_PROPERTY("Category", "s",
                    get<[](Item, BusMessage &reply) { reply.write("ApplicationStatus"); }>, 0, 0),
    SD_BUS_PROPERTY("Id", "s", get<[](Item, BusMessage &reply) { reply.write("corvane"); }>, 0, 0),
    SD_BUS_PROPERTY("Title", "s",
                    get<[](Item item, BusMessage &reply) { reply.write(item.description_); }>, 0,
                    0),
    SD_BUS_PROPERTY("Status", "s", get<[](Item, BusMessage &reply) { reply.write("Active"); }>, 0,
                    0),
    SD_BUS_PROPERTY("WindowId", "i", get<[](Item, BusMessage &reply) { reply.write(0); }>, 0, 0),
    SD_BUS_PROPERTY("IconThemePath", "s", get<writeNothing>, 0, 0),
    SD_BUS_PROPERTY("IconName", "s", get<writeNothing>, 0, 0),
    SD_BUS_PROPERTY("IconPixmap", "a(iiay)",
                    get<[](Item item, BusMessage &reply) { write(reply, item.pixmaps_); }>, 0, 0),
    SD_BUS_PROPERTY("OverlayIconName", "s", get<writeNothing>, 0, 0),
    SD_BUS_PROPERTY("OverlayIconPixmap", "a(iiay)", get<writeNoPixmaps>, 0, 0),
    SD_BUS_PROPERTY("AttentionIconName", "s", get<writeNothing>, 0, 0),
    SD_BUS_PROPERTY("AttentionIconPixmap", "a(iiay)", get<writeNoPixmaps>, 0, 0),
    SD_BUS_PROPERTY("AttentionMovieName", "s", get<writeNothing>, 0, 0),
    SD_BUS_PROPERTY("ToolTip", "(sa(iiay)ss)", get<[](Item item, BusMessage &reply) {
                        reply.writeStructure("sa(iiay)ss", [&] {
                            writeNothing(item, reply);
                            writeNoPixmaps(item, reply);
                            reply.write(item.toolTip_);
                            reply.write("");
                        });
                    }>,
                    0, 0),
    SD_BUS_PROPERTY("ItemIsMenu", "b", get<[](Item, BusMessage &reply) { reply.write(true); }>, 0,
                    0),
    SD_BUS_PROPERTY("Menu", "o",
                    get<[](Item item, BusMessage &reply) { reply.writePath(item.menuPath_); }>, 0,
                    0),
    SD_BUS_VTABLE_END};

StatusNotifierItem::StatusNotifierItem(BusConnection &bus, std::string menuPath,
                                       std::function<void(QPoint)> activate)
    : BusObject(bus, "/StatusNotifierItem", "org.kde.StatusNotifierItem"),
      menuPath_(std::move(menuPath)),
      activate_(std::move(activate)) {
    offer(table, this);
}

void StatusNotifierItem::setIcon(const QList<QImage> &images, const std::string &description) {
    pixmaps_.clear();
    for (const QImage &image : images) {
        pixmaps_.push_back(pixmapOf(image));
    }
    emitSignal("NewIcon");
    if (description_ != description) {
        description_ = description;
        emitSignal("NewTitle");
    }
}

void StatusNotifierItem::setToolTip(const std::string &text) {
    toolTip_ = text;
    emitSignal("NewToolTip");
}

StatusNotifierItem::Pixmap StatusNotifierItem::pixmapOf(const QImage &image) {
    const auto argb = image.convertToFormat(QImage::Format_ARGB32);
    Pixmap pixmap{.width = argb.width(), .height = argb.height(), .bytes = {}};
    pixmap.bytes.resize(static_cast<std::size_t>(argb.sizeInBytes()));
    qToBigEndian<quint32>(argb.constBits(), argb.sizeInBytes() / 4, pixmap.bytes.data());
    return pixmap;
}

void StatusNotifierItem::write(BusMessage &message, const std::vector<Pixmap> &pixmaps) {
    message.writeArray("(iiay)", [&] {
        for (const Pixmap &pixmap : pixmaps) {
            message.writeStructure("iiay", [&] {
                message.write(pixmap.width);
                message.write(pixmap.height);
                message.writeBytes(pixmap.bytes);
            });
        }
    });
}

bool StatusNotifierItem::click(BusMessage &call, BusMessage & /*reply*/) {
    const int x = call.readInt();
    const int y = call.readInt();
    QTimer::singleShot(0, &pending_, [activate = activate_, x, y] { activate({x, y}); });
    return true;
}

bool StatusNotifierItem::ignore(BusMessage & /*call*/, BusMessage & /*reply*/) { return true; }

} // namespace corvane::freedesktop
