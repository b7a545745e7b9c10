#include "platform/posix/CommandMessage.h"

#include <algorithm>
#include <charconv>

namespace corvane::posix {

namespace {

/// Longer numbers stand for no length anybody sends.
constexpr std::size_t mostDigits = 8;

std::string framed(std::string_view text) {
    return std::to_string(text.size()) + ":" + std::string(text) + ",";
}

/// The length in front of the colon; nothing where there is none.
std::optional<std::size_t> lengthIn(std::string_view digits) {
    std::size_t length = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), length);
    const bool isWhole = error == std::errc() && end == digits.data() + digits.size();
    return isWhole && digits.size() <= mostDigits ? std::optional(length) : std::nullopt;
}

/// Takes the frame at the beginning of `text` away; nothing where there is none.
std::optional<std::string_view> takeFrame(std::string_view &text) {
    const auto colon = text.substr(0, mostDigits + 1).find(':');
    const auto length =
        colon == std::string_view::npos ? std::nullopt : lengthIn(text.substr(0, colon));
    if (!length || text.size() < colon + *length + 2 || text[colon + 1 + *length] != ',') {
        return std::nullopt;
    }
    const std::string_view content = text.substr(colon + 1, *length);
    text.remove_prefix(colon + *length + 2);
    return content;
}

} // namespace

std::string encodeWords(const std::vector<std::string> &words) {
    std::string content;
    for (const std::string &word : words) {
        content += framed(word);
    }
    return framed(content);
}

std::optional<std::vector<std::string>> decodeWords(std::string_view message) {
    auto content = takeFrame(message);
    if (!content || !message.empty()) {
        return std::nullopt;
    }
    std::vector<std::string> words;
    while (!content->empty()) {
        const auto word = takeFrame(*content);
        if (!word) {
            return std::nullopt;
        }
        words.emplace_back(*word);
    }
    return words;
}

MessageReader::State MessageReader::append(std::string_view piece) {
    text_ += piece;
    const State reached = state();
    if (reached != State::complete) {
        return reached;
    }
    auto words = decodeWords(text_);
    if (!words) {
        return State::malformed;
    }
    words_ = std::move(*words);
    return State::complete;
}

/// By its length alone.
MessageReader::State MessageReader::state() const {
    const auto colon = text_.find(':');
    const std::string_view digits = std::string_view(text_).substr(0, colon);
    if (colon == std::string::npos) {
        const bool mayGoOn =
            digits.size() <= mostDigits &&
            std::ranges::all_of(digits, [](char digit) { return digit >= '0' && digit <= '9'; });
        return mayGoOn ? State::incomplete : State::malformed;
    }
    const auto length = lengthIn(digits);
    if (!length || *length > limit_ || text_.size() > colon + *length + 2) {
        return State::malformed;
    }
    return text_.size() < colon + *length + 2 ? State::incomplete : State::complete;
}

std::string encodeReply(const CommandReply &reply) {
    return encodeWords({std::to_string(static_cast<int>(reply.result)), reply.output, reply.error});
}

std::optional<CommandReply> decodeReply(const std::vector<std::string> &words) {
    if (words.size() != 3 || words.front().size() != 1) {
        return std::nullopt;
    }
    const int result = words.front().front() - '0';
    if (result < 0 || result > static_cast<int>(CommandResult::nothingRunning)) {
        return std::nullopt;
    }
    return CommandReply{static_cast<CommandResult>(result), words[1], words[2]};
}

} // namespace corvane::posix
