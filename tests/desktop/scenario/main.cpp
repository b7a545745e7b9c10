#include "Scenario.h"

#include <exception>
#include <iostream>

int main(int count, char *arguments[]) {
    using corvane::desktop::Scenario;
    using corvane::desktop::Stage;
    try {
        const auto stage =
            count == 2 || count == 3 ? Stage::make(count == 3 ? arguments[2] : "x11") : nullptr;
        if (!stage) {
            std::cerr << "Usage: corvane_scenario FOLDER-FOR-PICTURES [x11|COMPOSITOR]\n";
            return 2;
        }
        return Scenario(*stage, arguments[1]).play() ? 0 : 1;
    } catch (const std::exception &error) {
        std::cerr << error.what() << "\n";
        return 1;
    }
}
