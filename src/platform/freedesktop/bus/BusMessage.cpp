#include "platform/freedesktop/bus/BusMessage.h"

#include <cerrno>
#include <systemd/sd-bus.h>

namespace corvane::freedesktop {

void BusMessage::Unreference::operator()(sd_bus_message *message) const {
    sd_bus_message_unref(message);
}

void BusMessage::keep(int result) {
    if (!hasFailed() && result < 0) {
        result_ = result;
    }
}

void BusMessage::writeBasic(char type, const void *value) {
    if (!hasFailed()) {
        keep(sd_bus_message_append_basic(get(), type, value));
    }
}

void BusMessage::write(bool value) {
    const int number = value ? 1 : 0;
    writeBasic(SD_BUS_TYPE_BOOLEAN, &number);
}

void BusMessage::write(std::int32_t value) { writeBasic(SD_BUS_TYPE_INT32, &value); }

void BusMessage::write(std::uint32_t value) { writeBasic(SD_BUS_TYPE_UINT32, &value); }

void BusMessage::write(const char *text) { writeBasic(SD_BUS_TYPE_STRING, text); }

void BusMessage::writePath(const std::string &path) {
    writeBasic(SD_BUS_TYPE_OBJECT_PATH, path.c_str());
}

void BusMessage::writeBytes(std::span<const std::byte> bytes) {
    if (!hasFailed()) {
        keep(sd_bus_message_append_array(get(), SD_BUS_TYPE_BYTE, bytes.data(), bytes.size()));
    }
}

void BusMessage::writeInts(const std::vector<std::int32_t> &values) {
    writeArray("i", [&] {
        for (const std::int32_t value : values) {
            write(value);
        }
    });
}

void BusMessage::writeTexts(const std::vector<std::string> &texts) {
    writeArray("s", [&] {
        for (const std::string &text : texts) {
            write(text);
        }
    });
}

void BusMessage::open(char type, const char *contents) {
    if (!hasFailed()) {
        keep(sd_bus_message_open_container(get(), type, contents));
    }
}

void BusMessage::close() {
    if (!hasFailed()) {
        keep(sd_bus_message_close_container(get()));
    }
}

/// The library reports the end of an array by zero, where a value was to be read.
void BusMessage::readBasic(char type, void *value) {
    if (!hasFailed()) {
        const int result = sd_bus_message_read_basic(get(), type, value);
        keep(result == 0 ? -ENXIO : result);
    }
}

bool BusMessage::readBool() {
    int value = 0;
    readBasic(SD_BUS_TYPE_BOOLEAN, &value);
    return value != 0;
}

std::int32_t BusMessage::readInt() {
    std::int32_t value = 0;
    readBasic(SD_BUS_TYPE_INT32, &value);
    return value;
}

std::uint32_t BusMessage::readUnsigned() {
    std::uint32_t value = 0;
    readBasic(SD_BUS_TYPE_UINT32, &value);
    return value;
}

std::string BusMessage::readString(char type) {
    const char *text = nullptr;
    readBasic(type, static_cast<void *>(&text));
    return text == nullptr ? std::string() : text;
}

std::string BusMessage::readText() { return readString(SD_BUS_TYPE_STRING); }

std::string BusMessage::readPath() { return readString(SD_BUS_TYPE_OBJECT_PATH); }

std::vector<std::int32_t> BusMessage::readInts() {
    std::vector<std::int32_t> values;
    readArray("i", [&] { values.push_back(readInt()); });
    return values;
}

std::vector<std::string> BusMessage::readTexts() {
    std::vector<std::string> texts;
    readArray("s", [&] { texts.push_back(readText()); });
    return texts;
}

bool BusMessage::enter(char type, const char *contents) {
    if (!hasFailed()) {
        const int result = sd_bus_message_enter_container(get(), type, contents);
        keep(result == 0 ? -ENXIO : result);
    }
    return !hasFailed();
}

void BusMessage::leave() {
    if (!hasFailed()) {
        keep(sd_bus_message_exit_container(get()));
    }
}

bool BusMessage::isAtEnd() {
    if (!hasFailed()) {
        const int result = sd_bus_message_at_end(get(), 0);
        keep(result);
        return result != 0;
    }
    return true;
}

void BusMessage::skip(const char *types) {
    if (!hasFailed()) {
        keep(sd_bus_message_skip(get(), types));
    }
}

bool BusMessage::hasSignature(const char *signature) const {
    return get() != nullptr && sd_bus_message_has_signature(get(), signature) > 0;
}

bool BusMessage::isError() const {
    return get() == nullptr || sd_bus_message_is_method_error(get(), nullptr) > 0;
}

bool BusMessage::isError(const char *name) const {
    return get() != nullptr && sd_bus_message_is_method_error(get(), name) > 0;
}

std::string BusMessage::sender() const {
    const char *name = get() == nullptr ? nullptr : sd_bus_message_get_sender(get());
    return name == nullptr ? std::string() : name;
}

} // namespace corvane::freedesktop
