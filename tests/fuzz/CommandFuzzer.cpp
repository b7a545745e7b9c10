// What scripts, key bindings and links say to a running program.

#include "Fuzzing.h"
#include "app/Command.h"
#include "app/CommandLine.h"
#include "platform/posix/CommandMessage.h"

#include <algorithm>

using namespace corvane;
using namespace corvane::posix;
using fuzz::require;

namespace {

constexpr std::size_t longestMessage = 1000;

void handle(const CommandRequest &words) {
    const auto command = Command::parse(words);
    require(command || !command.error().description.empty(), "a refusal has a reason");
    const CommandLine line = CommandLine::parse(words, {.version = "1.0", .hotKeyName = "F1"});
    const bool start = words.empty() || words == CommandRequest{"--at-login"};
    require(start == (line.request == CommandLine::Request::run),
            "only no words, and the option of the login item, start the program");
    require(line.request != CommandLine::Request::command || command.has_value(),
            "only commands are sent");
    require(decodeWords(encodeWords(words)) == words, "words arrive as they were sent");
}

/// The pieces are as long as the first byte says.
void receiveInPieces(std::string_view text) {
    const std::size_t length =
        text.empty() ? 1 : std::max<std::size_t>(1, static_cast<unsigned char>(text.front()));
    MessageReader reader(longestMessage);
    auto state = MessageReader::State::incomplete;
    std::size_t place = 0;
    while (place < text.size() && state == MessageReader::State::incomplete) {
        state = reader.append(text.substr(place, length));
        place += length;
    }
    if (state == MessageReader::State::complete) {
        require(decodeWords(text.substr(0, place)) == reader.words(),
                "pieces are read as the whole is");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const std::string_view text = fuzz::textOf(data, size);
    receiveInPieces(text);
    if (const auto words = decodeWords(text)) {
        handle(*words);
        if (const auto reply = decodeReply(*words)) {
            require(decodeReply(*decodeWords(encodeReply(*reply))) == reply,
                    "an reply arrives as it was sent");
        }
    }
    if (const auto words = commandInUrl("corvane:" + std::string(text))) {
        handle(*words);
    }
    return 0;
}
