// Tables of translations.

#include "Fuzzing.h"
#include "support/StringTable.h"

#include <string>

using namespace corvane;

namespace {

std::string quoted(std::string_view text) {
    std::string result = "\"";
    for (const char letter : text) {
        if (letter == '"' || letter == '\\') {
            result += '\\';
        }
        result += letter;
    }
    return result + '"';
}

std::string written(const StringTable &table) {
    std::string text;
    for (const auto &[english, translation] : table) {
        text += quoted(english) + " = " + quoted(translation) + ";\n";
    }
    return text;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const std::string_view source = fuzz::textOf(data, size);
    const auto table = parsedStringTable(source);
    if (table) {
        fuzz::require(parsedStringTable(written(*table)) == table,
                      "what was written is read as the same");
        fuzz::require(!parsedStringTable(std::string(source) + "\"open"),
                      "a table that ends within a text is none");
    }
    return 0;
}
