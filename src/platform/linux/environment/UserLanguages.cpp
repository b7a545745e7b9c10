#include "platform/linux/environment/UserLanguages.h"

#include "platform/linux/environment/EnvironmentVariable.h"

#include <algorithm>
#include <array>
#include <sstream>
#include <string_view>

namespace corvane::linux {

namespace {

std::string messageLocale() {
    for (const char *variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        if (std::string locale = environmentVariable(variable); !locale.empty()) {
            return locale;
        }
    }
    return {};
}

/// "zh_CN" of "zh_CN.UTF-8@pinyin".
std::string_view regionOf(std::string_view locale) {
    return locale.substr(0, locale.find_first_of(".@"));
}

/// "zh-Hans" for "zh_CN", "de" for "de_AT".
std::string tableFor(std::string_view locale) {
    const std::string_view region = regionOf(locale);
    const std::string_view language = region.substr(0, region.find_first_of("_-"));
    if (language != "zh") {
        return std::string(language);
    }
    static constexpr std::array<std::string_view, 4> traditional = {"TW", "HK", "MO", "Hant"};
    const bool isTraditional = std::ranges::any_of(traditional, [region](std::string_view mark) {
        return region.find(mark) != std::string_view::npos;
    });
    return isTraditional ? "zh-Hant" : "zh-Hans";
}

} // namespace

std::vector<std::string> userLocales() {
    const std::string locale = messageLocale();
    if (regionOf(locale) == "POSIX" || locale == "C") {
        return {};
    }
    std::vector<std::string> locales;
    std::istringstream listed(environmentVariable("LANGUAGE"));
    for (std::string each; std::getline(listed, each, ':');) {
        if (!each.empty()) {
            locales.push_back(each);
        }
    }
    if (!locale.empty()) {
        locales.push_back(locale);
    }
    return locales;
}

std::string bestTable(const std::vector<std::string> &locales,
                      const std::vector<std::string> &tables) {
    for (const std::string &locale : locales) {
        std::string table = tableFor(locale);
        if (table == "en") {
            return {};
        }
        if (std::ranges::find(tables, table) != tables.end()) {
            return table;
        }
    }
    return {};
}

} // namespace corvane::linux
