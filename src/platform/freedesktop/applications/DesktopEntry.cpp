#include "platform/freedesktop/applications/DesktopEntry.h"

#include <cstddef>

namespace corvane::freedesktop {

namespace {

constexpr std::string_view mainGroup = "[Desktop Entry]";

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view blanks = " \t\r";
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

/// The character that a letter after a backslash stands for.
char unescaped(char letter) {
    switch (letter) {
    case 's':
        return ' ';
    case 'n':
        return '\n';
    case 't':
        return '\t';
    case 'r':
        return '\r';
    default:
        return letter;
    }
}

std::string withoutEscapes(std::string_view value) {
    std::string text;
    for (std::size_t index = 0; index < value.size(); ++index) {
        const bool isEscape = value[index] == '\\' && index + 1 < value.size();
        text += isEscape ? unescaped(value[++index]) : value[index];
    }
    return text;
}

std::string quotedArgument(std::string_view argument) {
    std::string quoted = "\"";
    for (const char character : argument) {
        if (std::string_view("\"`$\\").contains(character)) {
            quoted += '\\';
        } else if (character == '%') {
            quoted += '%';
        }
        quoted += character;
    }
    return quoted + '"';
}

} // namespace

std::map<std::string, std::string> desktopEntryValues(std::string_view file) {
    std::map<std::string, std::string> values;
    bool isInMainGroup = false;
    while (!file.empty()) {
        const std::size_t end = file.find('\n');
        const std::string_view line = trimmed(file.substr(0, end));
        file.remove_prefix(end == std::string_view::npos ? file.size() : end + 1);
        if (line.starts_with('[')) {
            isInMainGroup = line == mainGroup;
        }
        const std::size_t equals = line.find('=');
        if (isInMainGroup && !line.starts_with('#') && equals != std::string_view::npos) {
            values.emplace(trimmed(line.substr(0, equals)),
                           withoutEscapes(trimmed(line.substr(equals + 1))));
        }
    }
    return values;
}

/// A reader trims unescaped spaces at both ends.
std::string desktopEntryString(std::string_view text) {
    std::string value;
    for (std::size_t place = 0; place < text.size(); ++place) {
        const bool isAtEnd = place == 0 || place + 1 == text.size();
        switch (text[place]) {
        case '\\':
            value += "\\\\";
            break;
        case '\n':
            value += "\\n";
            break;
        case '\t':
            value += "\\t";
            break;
        case '\r':
            value += "\\r";
            break;
        case ' ':
            value += isAtEnd ? "\\s" : " ";
            break;
        default:
            value += text[place];
        }
    }
    return value;
}

/// The argument is quoted first, and the quoted text escaped as any string.
std::string desktopEntryCommand(std::string_view path) {
    return desktopEntryString(quotedArgument(path));
}

} // namespace corvane::freedesktop
