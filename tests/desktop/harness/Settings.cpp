#include "Settings.h"

namespace corvane::desktop {

namespace {

std::string quoted(const std::string &text) { return "\"" + text + "\""; }

std::string areaText(const Area &area) {
    return R"({"x": )" + std::to_string(area.x) + R"(, "y": )" + std::to_string(area.y) +
           R"(, "width": )" + std::to_string(area.width) + R"(, "height": )" +
           std::to_string(area.height) + "}";
}

} // namespace

std::string Settings::text() const {
    std::string text = R"({"clickMode": )" + quoted(clickMode) + R"(, "clickRate": )" +
                       std::to_string(clickRate) + R"(, "timeUnit": )" + quoted(timeUnit) +
                       R"(, "maxClicks": )" + std::to_string(maxClicks);
    if (zone) {
        text += R"(, "zoneRect": )" + areaText(*zone);
    }
    if (anchor) {
        text += R"(, "windowAnchor": {"bundleID": )" + quoted(anchor->application) +
                R"(, "windowTitle": )" + quoted(anchor->title) + R"(, "relativeRect": )" +
                areaText(anchor->relative) + "}";
    }
    return text + "}\n";
}

} // namespace corvane::desktop
