#pragma once

#include "presentation/CommandRequest.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::posix {

/// A list of words as a netstring of netstrings, such as "8:4:stop,,". Words may hold any bytes.
std::string encodeWords(const std::vector<std::string> &words);

/// Nothing for a malformed message.
std::optional<std::vector<std::string>> decodeWords(std::string_view message);

/// Puts a message together from the pieces in which it arrives.
class MessageReader {
  public:
    /// A message longer than `limit` bytes is not read.
    explicit MessageReader(std::size_t limit) : limit_(limit) {}

    enum class State { incomplete, complete, malformed };

    State append(std::string_view piece);

    /// The words of a message that is complete.
    const std::vector<std::string> &words() const { return words_; }

  private:
    State state() const;

    std::size_t limit_;
    std::string text_;
    std::vector<std::string> words_;
};

std::string encodeReply(const CommandReply &reply);

/// Nothing for words that are not an reply.
std::optional<CommandReply> decodeReply(const std::vector<std::string> &words);

} // namespace corvane::posix
