#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

struct sd_bus_message;

namespace corvane::freedesktop {

/// A message of D-Bus that is written or read value by value, in the order of its signature. The
/// first failure stays: what is read after it has the default value, and the message is not sent.
class BusMessage {
  public:
    /// A message that failed.
    BusMessage() = default;
    /// Takes over the caller's reference; `result` is what the library returned with it.
    explicit BusMessage(sd_bus_message *message, int result = 0)
        : message_(message),
          result_(result) {}

    sd_bus_message *get() const { return message_.get(); }
    /// Negative after a failure: an error number of the system.
    int result() const { return result_; }
    bool hasFailed() const { return result_ < 0; }

    void write(bool value);
    void write(std::int32_t value);
    void write(std::uint32_t value);
    void write(const char *text);
    void write(const std::string &text) { write(text.c_str()); }
    void writePath(const std::string &path);
    /// ay
    void writeBytes(std::span<const std::byte> bytes);
    /// ai
    void writeInts(const std::vector<std::int32_t> &values);
    /// as
    void writeTexts(const std::vector<std::string> &texts);
    /// `contents` is the signature of what `writeContents` writes, or of one element of an array.
    template <typename Write>
    void writeArray(const char *contents, Write writeContents) {
        writeContainer('a', contents, writeContents);
    }
    template <typename Write>
    void writeStructure(const char *contents, Write writeContents) {
        writeContainer('r', contents, writeContents);
    }
    template <typename Write>
    void writeEntry(const char *contents, Write writeContents) {
        writeContainer('e', contents, writeContents);
    }
    template <typename Write>
    void writeVariant(const char *contents, Write writeContents) {
        writeContainer('v', contents, writeContents);
    }

    bool readBool();
    std::int32_t readInt();
    std::uint32_t readUnsigned();
    std::string readText();
    std::string readPath();
    /// ai
    std::vector<std::int32_t> readInts();
    /// as
    std::vector<std::string> readTexts();
    /// Calls `readElement` for each element of an array.
    template <typename Read>
    void readArray(const char *contents, Read readElement) {
        if (!enter('a', contents)) {
            return;
        }
        while (!isAtEnd()) {
            readElement();
        }
        leave();
    }
    template <typename Read>
    void readStructure(const char *contents, Read readContents) {
        readContainer('r', contents, readContents);
    }
    template <typename Read>
    void readEntry(const char *contents, Read readContents) {
        readContainer('e', contents, readContents);
    }
    template <typename Read>
    void readVariant(const char *contents, Read readContents) {
        readContainer('v', contents, readContents);
    }
    void skip(const char *types);

    /// Whether it has values of exactly these types.
    bool hasSignature(const char *signature) const;
    bool isError() const;
    bool isError(const char *name) const;
    /// Empty where the bus did not say it.
    std::string sender() const;

  private:
    struct Unreference {
        void operator()(sd_bus_message *message) const;
    };

    template <typename Write>
    void writeContainer(char type, const char *contents, Write writeContents) {
        open(type, contents);
        writeContents();
        close();
    }
    template <typename Read>
    void readContainer(char type, const char *contents, Read readContents) {
        if (enter(type, contents)) {
            readContents();
            leave();
        }
    }
    void writeBasic(char type, const void *value);
    void readBasic(char type, void *value);
    std::string readString(char type);
    void open(char type, const char *contents);
    void close();
    bool enter(char type, const char *contents);
    void leave();
    /// Also after a failure.
    bool isAtEnd();
    void keep(int result);

    std::unique_ptr<sd_bus_message, Unreference> message_;
    int result_ = 0;
};

} // namespace corvane::freedesktop
