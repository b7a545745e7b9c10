#include "platform/wayland/sway/Bindings.h"

#include <algorithm>
#include <cctype>
#include <map>
#include <set>
#include <sstream>

namespace corvane::wayland::sway {

namespace {

using Variables = std::map<std::string, std::string>;

std::string lowered(std::string text) {
    std::ranges::transform(text, text.begin(), [](unsigned char letter) {
        return static_cast<char>(std::tolower(letter));
    });
    return text;
}

/// sway takes the longest name that fits; names rarely begin alike, and longer ones sort later.
std::string expanded(std::string text, const Variables &variables) {
    for (auto variable = variables.rbegin(); variable != variables.rend(); ++variable) {
        for (auto found = text.find(variable->first); found != std::string::npos;
             found = text.find(variable->first, found + variable->second.size())) {
            text.replace(found, variable->first.size(), variable->second);
        }
    }
    return text;
}

/// The names of keys in any order and case; sway has two for some modifiers.
std::set<std::string> keySet(std::string_view keys) {
    std::set<std::string> names;
    std::istringstream stream{lowered(std::string(keys))};
    for (std::string name; std::getline(stream, name, '+');) {
        names.insert(name == "super" || name == "logo" ? "mod4" : name == "alt" ? "mod1" : name);
    }
    return names;
}

} // namespace

bool bindsKeys(std::string_view configuration, std::string_view keys) {
    const auto wanted = keySet(keys);
    Variables variables;
    std::istringstream lines{std::string(configuration)};
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line);
        std::string word;
        words >> word;
        if (word == "set") {
            std::string name;
            std::string value;
            words >> name >> value;
            if (name.starts_with('$')) {
                variables[name] = expanded(value, variables);
            }
        } else if (word == "bindsym") {
            while (words >> word && word.starts_with("--")) {
            }
            if (keySet(expanded(word, variables)) == wanted) {
                return true;
            }
        }
    }
    return false;
}

} // namespace corvane::wayland::sway
