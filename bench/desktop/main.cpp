#include "FigureTable.h"
#include "Options.h"

#include <cstddef>
#include <exception>
#include <iostream>
#include <span>
#include <utility>

namespace {

using namespace corvane::bench;

/// Whether everything could be measured; what could not be does not keep the rest from it.
bool measure(const Options &options, FigureTable &table) {
    bool isComplete = true;
    for (const Measurement &measurement : options.chosen) {
        std::cerr << "measuring: " << measurement.name << '\n';
        try {
            for (Figure &figure : measurement.measure(options.extent)) {
                table.figures.push_back(std::move(figure));
            }
        } catch (const std::exception &error) {
            std::cerr << "could not be measured: " << error.what() << "\n";
            isComplete = false;
        }
    }
    return isComplete;
}

} // namespace

int main(int count, char *arguments[]) {
    const std::span<const char *const> all(arguments, static_cast<std::size_t>(count));
    const auto options = Options::parse(all.subspan(1));
    if (!options) {
        std::cerr << Options::usage() << "NAME is one of:";
        for (const Measurement &measurement : measurements()) {
            std::cerr << " " << measurement.name;
        }
        std::cerr << "\n";
        return 2;
    }
    FigureTable table{.machine = Machine::present()};
    const bool isComplete = measure(*options, table);
    std::cout << table.text();
    if (!table.write(options->file)) {
        std::cerr << "cannot write " << options->file << "\n";
        return 1;
    }
    return isComplete ? 0 : 1;
}
