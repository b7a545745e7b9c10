// What stands in environment variables, on its way to names, paths and languages.

#include "Fuzzing.h"
#include "platform/linux/commands/CommandSockets.h"
#include "platform/linux/environment/UserDirectories.h"
#include "platform/linux/environment/UserLanguages.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <string>

using namespace corvane::linux;
using corvane::fuzz::require;

namespace {

/// The variables' values, one a line.
void setVariables(std::string_view input) {
    static constexpr std::array names{"DISPLAY",       "LANGUAGE", "LC_ALL",
                                      "LC_MESSAGES",   "LANG",     "XDG_CONFIG_HOME",
                                      "XDG_DATA_HOME", "HOME",     "XDG_RUNTIME_DIR"};
    std::string text(input.substr(0, input.find('\0')));
    for (const char *name : names) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        setenv(name, text.substr(0, end).c_str(), 1); // NOLINT(concurrency-mt-unsafe)
        text.erase(0, std::min(end + 1, text.size()));
    }
}

void findCommands() {
    const auto socket = commandSocket();
    require(socket.parent_path().filename().string().starts_with("corvane"),
            "a display's socket is in the folder for sockets");
    require(std::ranges::all_of(socket.stem().string(),
                                [](char letter) {
                                    return (letter >= 'a' && letter <= 'z') ||
                                           (letter >= 'A' && letter <= 'Z') ||
                                           (letter >= '0' && letter <= '9') || letter == '_';
                                }),
            "a socket has a plain name");
}

void findFolders() {
    for (const auto &folder : {homeDirectory(), configDirectory(), dataDirectory()}) {
        require(folder.is_absolute(), "a folder does not depend on where the program was started");
    }
}

void findLanguage() {
    const auto locales = userLocales();
    require(std::ranges::none_of(locales, &std::string::empty), "a language has a name");
    const std::vector<std::string> tables{"de", "fr", "ja", "zh-Hans", "zh-Hant"};
    const std::string table = bestTable(locales, tables);
    require(table.empty() || std::ranges::find(tables, table) != tables.end(),
            "only tables that exist are used");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    setVariables(corvane::fuzz::textOf(data, size));
    findCommands();
    findFolders();
    findLanguage();
    return 0;
}
