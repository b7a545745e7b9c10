#include "presentation/CommandRequest.h"

#include <algorithm>
#include <charconv>
#include <system_error>

namespace corvane {

namespace {

constexpr std::string_view scheme = "corvane:";

/// Replaces each "%20" by what it stands for; nothing where an escape is not whole.
std::optional<std::string> unescaped(std::string_view text) {
    constexpr std::size_t escapeLength = 3;
    constexpr int hexadecimal = 16;
    std::string plain;
    while (!text.empty()) {
        if (text.front() != '%') {
            plain += text.front();
            text.remove_prefix(1);
            continue;
        }
        const std::string_view digits = text.substr(1, 2);
        unsigned char byte = 0;
        const auto [end, error] =
            std::from_chars(digits.data(), digits.data() + digits.size(), byte, hexadecimal);
        if (digits.size() != 2 || error != std::errc() || end != digits.data() + digits.size()) {
            return std::nullopt;
        }
        plain += static_cast<char>(byte);
        text.remove_prefix(escapeLength);
    }
    return plain;
}

/// Everything but letters and digits, as "%20".
std::string escaped(std::string_view text) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    constexpr unsigned base = 16;
    std::string safe;
    for (const char letter : text) {
        const auto byte = static_cast<unsigned char>(letter);
        const bool isPlain = (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z') ||
                             (letter >= '0' && letter <= '9');
        if (isPlain) {
            safe += letter;
        } else {
            safe += {'%', digits[byte / base], digits[byte % base]};
        }
    }
    return safe;
}

} // namespace

std::string urlOfCommand(const CommandRequest &words) {
    std::string url = std::string(scheme) + "/";
    for (const std::string &word : words) {
        url += "/" + escaped(word);
    }
    return url;
}

std::optional<CommandRequest> commandInUrl(std::string_view url) {
    if (!url.starts_with(scheme)) {
        return std::nullopt;
    }
    url.remove_prefix(scheme.size());
    CommandRequest words;
    while (!url.empty()) {
        const std::string_view part = url.substr(0, url.find('/'));
        url.remove_prefix(std::min(part.size() + 1, url.size()));
        const auto word = unescaped(part);
        if (!word) {
            return std::nullopt;
        }
        if (!word->empty()) {
            words.push_back(*word);
        }
    }
    return words;
}

CommandReply noReply() {
    return {.result = CommandResult::refused, .error = "the running Corvane does not answer"};
}

CommandReply nothingRunning() {
    return {.result = CommandResult::nothingRunning, .error = "Corvane is not running"};
}

} // namespace corvane
