#include "Scenario.h"

#include <exception>
#include <iostream>

int main(int count, char *arguments[]) {
    if (count != 2) {
        std::cerr << "Usage: corvane_scenario FOLDER-FOR-PICTURES\n";
        return 2;
    }
    try {
        return corvane::desktop::Scenario(arguments[1]).play() ? 0 : 1;
    } catch (const std::exception &error) {
        std::cerr << error.what() << "\n";
        return 1;
    }
}
