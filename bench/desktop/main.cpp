#include "FigureTable.h"
#include "Options.h"

#include <cstddef>
#include <exception>
#include <iostream>
#include <span>

namespace {

using namespace corvane::bench;

void measure(const Options &options, FigureTable &table) {
    for (const Measurement &measurement : options.chosen) {
        std::cerr << "measuring: " << measurement.name << std::endl;
        for (Figure &figure : measurement.measure(options.extent)) {
            table.figures.push_back(std::move(figure));
        }
    }
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
    try {
        FigureTable table{.machine = Machine::present()};
        measure(*options, table);
        std::cout << table.text();
        if (!table.write(options->file)) {
            std::cerr << "cannot write " << options->file << "\n";
            return 1;
        }
    } catch (const std::exception &error) {
        std::cerr << error.what() << "\n";
        return 1;
    }
    return 0;
}
