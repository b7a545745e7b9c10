#include "Scenario.h"
#include "WaylandScenario.h"

#include <exception>
#include <iostream>
#include <string_view>

int main(int count, char *arguments[]) {
    const std::string_view desktop = count > 2 ? arguments[2] : "x11";
    if (count < 2 || count > 3 || (desktop != "x11" && desktop != "sway" && desktop != "kwin")) {
        std::cerr << "Usage: corvane_scenario FOLDER-FOR-PICTURES [x11|sway|kwin]\n";
        return 2;
    }
    try {
        if (desktop == "x11") {
            return corvane::desktop::Scenario(arguments[1]).play() ? 0 : 1;
        }
        return corvane::desktop::WaylandScenario(std::string(desktop), arguments[1]).play() ? 0 : 1;
    } catch (const std::exception &error) {
        std::cerr << error.what() << "\n";
        return 1;
    }
}
