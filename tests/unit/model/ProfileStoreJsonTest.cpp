#include "model/Json.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

constexpr const char *firstId = "0F8FAD5B-D9CB-469F-A165-70867728950E";
constexpr const char *secondId = "7C9E6679-7425-40DE-944B-E07FC1F90AE7";

Uuid uuid(std::string_view text) { return *Uuid::fromText(text); }

/// A store with one profile of which one member is replaced by another text, or taken out.
std::string storeWith(const std::string &member, const std::string &replacement) {
    const std::vector<std::pair<std::string, std::string>> members = {
        {"id", std::string("\"") + firstId + "\""},
        {"name", "\"Work\""},
        {"clickMode", "\"zone\""},
        {"clickRate", "5"},
        {"timeUnit", "\"s\""},
        {"maxClicks", "0"},
        {"zoneRect", R"({"x":1,"y":2,"width":3,"height":4})"},
        {"windowAnchor", R"({"bundleID":"b","windowTitle":"t",)"
                         R"("relativeRect":{"x":1,"y":2,"width":3,"height":4}})"}};
    std::string text;
    for (const auto &[key, value] : members) {
        const std::string &written = key == member ? replacement : value;
        if (!written.empty()) {
            text += text.empty() ? "\"" : ",\"";
            text += key;
            text += "\":";
            text += written;
        }
    }
    return "{\"profiles\":[{" + text + "}]}";
}

std::string whyNot(std::string_view text) {
    const auto store = decodeProfileStore(text);
    return store ? "it was read" : store.error().description;
}

TEST(ProfileStoreJsonTest, WritesAnEmptyStore) {
    EXPECT_EQ(encodeProfileStore({}), "{\n"
                                      "  \"profiles\" : [\n"
                                      "\n"
                                      "  ]\n"
                                      "}");
}

TEST(ProfileStoreJsonTest, WritesProfilesInTheirOrderWithSortedMembers) {
    const ProfileStore store{
        .profiles = {{uuid(firstId), "Work", {}},
                     {uuid(secondId),
                      "Play\n",
                      {.clickMode = ClickMode::zone,
                       .zoneRect = CodableRect{1, 2, 3, 4},
                       .windowAnchor = WindowAnchor{"org.example.game", "Level 1", {5, 6, 3, 4}},
                       .clickRate = 20,
                       .timeUnit = TimeUnit::minutes,
                       .maxClicks = 100}}},
        .activeProfileID = uuid(secondId)};
    EXPECT_EQ(encodeProfileStore(store),
              "{\n"
              "  \"activeProfileID\" : \"7C9E6679-7425-40DE-944B-E07FC1F90AE7\",\n"
              "  \"profiles\" : [\n"
              "    {\n"
              "      \"clickMode\" : \"cursor\",\n"
              "      \"clickRate\" : 1,\n"
              "      \"id\" : \"0F8FAD5B-D9CB-469F-A165-70867728950E\",\n"
              "      \"maxClicks\" : 0,\n"
              "      \"name\" : \"Work\",\n"
              "      \"timeUnit\" : \"s\"\n"
              "    },\n"
              "    {\n"
              "      \"clickMode\" : \"zone\",\n"
              "      \"clickRate\" : 20,\n"
              "      \"id\" : \"7C9E6679-7425-40DE-944B-E07FC1F90AE7\",\n"
              "      \"maxClicks\" : 100,\n"
              "      \"name\" : \"Play\\n\",\n"
              "      \"timeUnit\" : \"m\",\n"
              "      \"windowAnchor\" : {\n"
              "        \"bundleID\" : \"org.example.game\",\n"
              "        \"relativeRect\" : {\n"
              "          \"height\" : 4,\n"
              "          \"width\" : 3,\n"
              "          \"x\" : 5,\n"
              "          \"y\" : 6\n"
              "        },\n"
              "        \"windowTitle\" : \"Level 1\"\n"
              "      },\n"
              "      \"zoneRect\" : {\n"
              "        \"height\" : 4,\n"
              "        \"width\" : 3,\n"
              "        \"x\" : 1,\n"
              "        \"y\" : 2\n"
              "      }\n"
              "    }\n"
              "  ]\n"
              "}");
    EXPECT_EQ(decodeProfileStore(*encodeProfileStore(store)), store);
}

TEST(ProfileStoreJsonTest, ReadsAnEmptyStore) {
    EXPECT_EQ(decodeProfileStore(R"({"profiles":[]})"), ProfileStore{});
    EXPECT_EQ(decodeProfileStore(R"({"profiles":[],"activeProfileID":null,"future":1})"),
              ProfileStore{});
}

TEST(ProfileStoreJsonTest, KeepsAnActiveIdThatNamesNoProfile) {
    const auto store =
        decodeProfileStore(std::string(R"({"profiles":[],"activeProfileID":")") + secondId + "\"}");
    ASSERT_TRUE(store);
    EXPECT_EQ(store->activeProfileID, uuid(secondId));
}

TEST(ProfileStoreJsonTest, ReadsAnIdInLowerCaseAndWritesItInUpperCase) {
    const auto store =
        decodeProfileStore(storeWith("id", "\"0f8fad5b-d9cb-469f-a165-70867728950e\""));
    ASSERT_TRUE(store);
    EXPECT_EQ(store->profiles.front().id, uuid(firstId));
    EXPECT_NE(encodeProfileStore(*store)->find(firstId), std::string::npos);
}

TEST(ProfileStoreJsonTest, AProfileWithoutZoneAndAnchorKeepsNone) {
    const std::string id = std::string("\"") + firstId + "\"";
    for (const std::string optionals : {"", R"(,"zoneRect":null,"windowAnchor":null)"}) {
        std::string read = R"({"profiles":[{"id":)";
        read += id;
        read += R"(,"name":"","clickMode":"cursor","clickRate":1,"timeUnit":"s","maxClicks":0)";
        read += optionals;
        read += "}]}";
        const auto store = decodeProfileStore(read);
        ASSERT_TRUE(store);
        EXPECT_EQ(store->profiles.front().config, CorvaneConfig{});
        const std::string text = *encodeProfileStore(*store);
        EXPECT_EQ(text.find("zoneRect"), std::string::npos);
        EXPECT_EQ(text.find("windowAnchor"), std::string::npos);
        EXPECT_EQ(text.find("activeProfileID"), std::string::npos);
    }
}

TEST(ProfileStoreJsonTest, AMissingMemberFailsTheWhole) {
    for (const std::string member :
         {"id", "name", "clickMode", "clickRate", "timeUnit", "maxClicks"}) {
        EXPECT_EQ(whyNot(storeWith(member, "")), "profiles: number 1: " + member + ": missing");
        EXPECT_EQ(whyNot(storeWith(member, "null")), "profiles: number 1: " + member + ": missing");
    }
    EXPECT_EQ(whyNot(storeWith("", "")), "it was read");
    EXPECT_EQ(whyNot("{}"), "profiles: missing");
    EXPECT_EQ(whyNot(R"({"profiles":null})"), "profiles: missing");
}

TEST(ProfileStoreJsonTest, AWrongMemberFailsTheWhole) {
    EXPECT_EQ(whyNot(storeWith("timeUnit", "\"seconds\"")),
              "profiles: number 1: timeUnit: not a known value");
    EXPECT_EQ(whyNot(storeWith("clickMode", "\"left\"")),
              "profiles: number 1: clickMode: not a known value");
    EXPECT_EQ(whyNot(storeWith("id", "\"1\"")), "profiles: number 1: id: not a known value");
    EXPECT_EQ(whyNot(storeWith("name", "1")), "profiles: number 1: name: not a text");
    EXPECT_EQ(whyNot(storeWith("clickRate", "\"5\"")),
              "profiles: number 1: clickRate: not a whole number of 64 bits");
    EXPECT_EQ(whyNot(storeWith("maxClicks", "9223372036854775808")),
              "profiles: number 1: maxClicks: beyond 64 bits");
    EXPECT_EQ(whyNot(storeWith("maxClicks", "1e19")),
              "profiles: number 1: maxClicks: not a whole number of 64 bits");
    EXPECT_EQ(whyNot(storeWith("zoneRect", R"({"x":1,"y":2,"width":3})")),
              "profiles: number 1: zoneRect: height: missing");
    EXPECT_EQ(whyNot(storeWith("zoneRect", "7")), "profiles: number 1: zoneRect: not an object");
    EXPECT_EQ(whyNot(storeWith("windowAnchor", R"({"bundleID":"b","windowTitle":"t"})")),
              "profiles: number 1: windowAnchor: relativeRect: missing");
    EXPECT_EQ(whyNot(storeWith("windowAnchor", "7")),
              "profiles: number 1: windowAnchor: not an object");
}

TEST(ProfileStoreJsonTest, AZoneMayBeOfAnySize) {
    const auto store =
        decodeProfileStore(storeWith("zoneRect", R"({"x":1,"y":2,"width":1e40,"height":4})"));
    ASSERT_TRUE(store);
    EXPECT_EQ(store->profiles.front().config.zoneRect, (CodableRect{1, 2, 1e40, 4}));
}

TEST(ProfileStoreJsonTest, AWrongStoreFails) {
    EXPECT_EQ(whyNot("[]"), "not an object");
    EXPECT_EQ(whyNot(R"({"profiles":{}})"), "profiles: not a list");
    EXPECT_EQ(whyNot(R"({"profiles":[7]})"), "profiles: number 1: not an object");
    EXPECT_EQ(whyNot(R"({"profiles":[],"activeProfileID":"none"})"),
              "activeProfileID: not a known value");
    EXPECT_EQ(whyNot(R"({"profiles":[],"activeProfileID":1})"),
              "activeProfileID: not a known value");
    EXPECT_EQ(whyNot("profiles"), "not valid JSON at byte 1");
}

TEST(ProfileStoreJsonTest, OneBadProfileFailsTheWhole) {
    std::string text = storeWith("", "");
    text.insert(text.size() - 2, ",{}");
    EXPECT_EQ(whyNot(text), "profiles: number 2: id: missing");
}

} // namespace
} // namespace corvane
