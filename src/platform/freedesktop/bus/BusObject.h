#pragma once

#include "platform/freedesktop/bus/BusConnection.h"

#include <systemd/sd-bus.h>

namespace corvane::freedesktop {

/// An object of this program that other programs call on the bus: one interface of methods,
/// properties and signals, described by a table of the library (sd-bus-vtable(3)). The library
/// refuses calls with other arguments than the table names and describes the object to tools. Main
/// thread.
class BusObject {
  public:
    /// The connection outlives the object.
    BusObject(BusConnection &bus, std::string path, const char *interface)
        : bus_(bus),
          path_(std::move(path)),
          interface_(interface) {}
    BusObject(const BusObject &) = delete;
    BusObject &operator=(const BusObject &) = delete;

    const std::string &path() const { return path_; }

  protected:
    ~BusObject() = default;

    /// Puts the object on the bus; called once, at the end of the derived class's constructor with
    /// that object.
    template <typename Object>
    void offer(const sd_bus_vtable *table, Object *object) {
        slot_ = bus_.addObject(path_, interface_, table, object);
    }

    /// `writeArguments` takes the signal.
    template <typename Write>
    void emitSignal(const char *name, Write writeArguments) {
        BusMessage signal = bus_.newSignal(path_, interface_, name);
        writeArguments(signal);
        bus_.send(signal);
    }
    void emitSignal(const char *name) {
        emitSignal(name, [](BusMessage &) {});
    }

  private:
    BusConnection &bus_;
    const std::string path_;
    const char *const interface_;
    BusSlot slot_;
};

/// A method in the table of an object: `handle` is a member function that reads the call and writes
/// the reply, and returns false where it refuses the call.
template <typename Object, bool (Object::*handle)(BusMessage &call, BusMessage &reply)>
int handleCall(sd_bus_message *message, void *object, sd_bus_error * /*error*/) {
    sd_bus_message *replyMessage = nullptr;
    const int result = sd_bus_message_new_method_return(message, &replyMessage);
    BusMessage reply(replyMessage, result);
    BusMessage call(sd_bus_message_ref(message));
    const bool isHandled = (static_cast<Object *>(object)->*handle)(call, reply);
    if (!isHandled || call.hasFailed() || reply.hasFailed()) {
        return sd_bus_reply_method_errorf(message, SD_BUS_ERROR_INVALID_ARGS, "invalid arguments");
    }
    return sd_bus_send(nullptr, reply.get(), nullptr);
}

/// A property in the table of an object: `write` takes the object and the reply.
template <typename Object, auto write>
int readProperty(sd_bus * /*bus*/, const char * /*path*/, const char * /*interface*/,
                 const char * /*name*/, sd_bus_message *message, void *object,
                 sd_bus_error * /*error*/) {
    BusMessage reply(sd_bus_message_ref(message));
    write(*static_cast<const Object *>(object), reply);
    return reply.result();
}

} // namespace corvane::freedesktop
