#include "ProfilesText.h"

#include <array>
#include <string_view>

namespace corvane::desktop {

namespace {

std::string profileText(const StoredProfile &profile) {
    return "    {\n"
           "      \"clickMode\" : \"cursor\",\n"
           "      \"clickRate\" : " +
           profile.clickRate +
           ",\n"
           "      \"id\" : \"" +
           profile.id +
           "\",\n"
           "      \"maxClicks\" : 0,\n"
           "      \"name\" : \"" +
           profile.name +
           "\",\n"
           "      \"timeUnit\" : \"s\"\n"
           "    }";
}

/// Names that are hard to show: with the escapes of JSON.
std::string oddName(std::size_t index) {
    static const std::array<std::string, 10> names = {
        std::string(10240, 'W'),
        "\U0001F600\U0001F3FD\U0001F468\u200D\U0001F469\u200D\U0001F467",
        "\u0645\u0631\u062D\u0628\u0627 \u05E9\u05DC\u05D5\u05DD",
        R"(a\nb\r\nc\td\u0001)",
        "_&_&&__ &File",
        "   ",
        "",
        "\u200B\u00A0",
        "\u202Eevil",
        R"(<b>\"\\<\/b> 100% \/)"};
    return names.at(index % names.size());
}

} // namespace

std::vector<StoredProfile> manyOddProfiles() {
    constexpr std::size_t count = 500;
    std::vector<StoredProfile> profiles;
    for (std::size_t index = 0; index < count; ++index) {
        const std::string number = std::to_string(100000 + index);
        profiles.push_back({.id = "00000000-0000-4000-8000-000000" + number,
                            .name = oddName(index),
                            .clickRate = std::to_string(index + 1)});
    }
    return profiles;
}

std::string profilesText(const std::vector<StoredProfile> &profiles,
                         const std::optional<std::string> &activeID) {
    std::string text = "{\n";
    text += activeID ? R"(  "activeProfileID" : ")" + *activeID + "\",\n" : "";
    text += "  \"profiles\" : [\n";
    for (const StoredProfile &profile : profiles) {
        text += (&profile == &profiles.front() ? "" : ",\n") + profileText(profile);
    }
    return text + "\n  ]\n}";
}

std::vector<std::string> profileIDs(const std::string &text) {
    constexpr std::string_view key = R"("id" : ")";
    std::vector<std::string> ids;
    for (std::size_t found = text.find(key); found != std::string::npos;
         found = text.find(key, found + 1)) {
        const std::size_t start = found + key.size();
        ids.push_back(text.substr(start, text.find('"', start) - start));
    }
    return ids;
}

} // namespace corvane::desktop
