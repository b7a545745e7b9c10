#include "support/StringTable.h"

#include <algorithm>
#include <utility>

namespace corvane {

namespace {

/// Takes a table apart from its beginning to its end.
class Reader {
  public:
    explicit Reader(std::string_view source) : rest_(source) {}

    bool isAtEnd() const { return rest_.empty(); }

    /// False when a comment has no end.
    bool skipSpaceAndComments() {
        while (true) {
            rest_.remove_prefix(std::min(rest_.find_first_not_of(" \t\r\n"), rest_.size()));
            if (!rest_.starts_with("/*")) {
                return true;
            }
            const std::size_t end = rest_.find("*/");
            if (end == std::string_view::npos) {
                return false;
            }
            rest_.remove_prefix(end + 2);
        }
    }

    bool take(char mark) {
        if (!skipSpaceAndComments() || !rest_.starts_with(mark)) {
            return false;
        }
        rest_.remove_prefix(1);
        return true;
    }

    std::optional<std::string> takeText() {
        if (!take('"')) {
            return std::nullopt;
        }
        std::string text;
        while (!rest_.empty() && rest_.front() != '"') {
            const auto letter = takeLetter();
            if (!letter) {
                return std::nullopt;
            }
            text += *letter;
        }
        return take('"') ? std::optional(text) : std::nullopt;
    }

  private:
    std::optional<char> takeLetter() {
        const bool isEscaped = rest_.starts_with('\\');
        if (isEscaped) {
            rest_.remove_prefix(1);
        }
        if (rest_.empty()) {
            return std::nullopt;
        }
        const char letter = rest_.front();
        rest_.remove_prefix(1);
        return isEscaped ? meaningOf(letter) : letter;
    }

    static std::optional<char> meaningOf(char escaped) {
        switch (escaped) {
        case '"':
        case '\\':
            return escaped;
        case 'n':
            return '\n';
        case 't':
            return '\t';
        default:
            return std::nullopt;
        }
    }

    std::string_view rest_;
};

} // namespace

std::optional<StringTable> parsedStringTable(std::string_view source) {
    StringTable table;
    Reader reader(source);
    while (reader.skipSpaceAndComments()) {
        if (reader.isAtEnd()) {
            return table;
        }
        auto english = reader.takeText();
        if (!english || !reader.take('=')) {
            return std::nullopt;
        }
        auto translation = reader.takeText();
        if (!translation || !reader.take(';') ||
            !table.try_emplace(std::move(*english), std::move(*translation)).second) {
            return std::nullopt;
        }
    }
    return std::nullopt;
}

} // namespace corvane
