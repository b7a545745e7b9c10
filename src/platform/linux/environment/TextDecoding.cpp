#include "platform/linux/environment/TextDecoding.h"

#include <QString>

namespace corvane::linux {

namespace {

constexpr char escape = '\x1b';
constexpr std::string_view startOfUtf8 = "\x1b%G";
constexpr std::string_view endOfUtf8 = "\x1b%@";

/// The length of an escape sequence: any number of intermediate characters and a final one.
std::size_t escapeLength(std::string_view text) {
    std::size_t length = 1;
    while (length < text.size() && text[length] >= ' ' && text[length] <= '/') {
        ++length;
    }
    return std::min(length + 1, text.size());
}

QByteArrayView view(std::string_view bytes) {
    return {bytes.data(), static_cast<qsizetype>(bytes.size())};
}

} // namespace

std::string utf8Text(std::string_view bytes) {
    return QString::fromUtf8(view(bytes)).toStdString();
}

std::string latin1Text(std::string_view bytes) {
    return QString::fromLatin1(view(bytes)).toStdString();
}

std::string compoundText(std::string_view bytes) {
    std::string text;
    while (!bytes.empty()) {
        if (bytes.starts_with(startOfUtf8)) {
            bytes.remove_prefix(startOfUtf8.size());
            const std::string_view segment = bytes.substr(0, bytes.find(endOfUtf8));
            text += utf8Text(segment);
            bytes.remove_prefix(segment.size());
        } else if (bytes.front() == escape) {
            bytes.remove_prefix(escapeLength(bytes));
        } else {
            const std::string_view segment = bytes.substr(0, bytes.find(escape));
            text += latin1Text(segment);
            bytes.remove_prefix(segment.size());
        }
    }
    return text;
}

} // namespace corvane::linux
