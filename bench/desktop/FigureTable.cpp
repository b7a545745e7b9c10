#include "FigureTable.h"

#include "NumberColumn.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <cstddef>
#include <fstream>
#include <optional>

namespace corvane::bench {

namespace {

constexpr std::size_t columns = 6;
using Row = std::array<std::string, columns>;

Row rowOf(const Figure &figure) {
    const auto ratio = figure.ratio();
    const std::string target = figure.target.text();
    return {figure.name + (figure.unit.empty() ? "" : ", " + figure.unit),
            target,
            measuredText(figure.median),
            measuredText(figure.p99),
            ratio && figure.reference ? measuredText(*ratio) + " (" + figure.reference->name + ")"
                                      : "",
            target.empty()   ? ""
            : figure.isMet() ? "yes"
                             : "no"};
}

/// Characters, of text in UTF-8.
std::size_t widthOf(const std::string &text) {
    return static_cast<std::size_t>(std::ranges::count_if(
        text, [](char unit) { return (static_cast<unsigned char>(unit) & 0xC0U) != 0x80U; }));
}

std::string lineOf(const Row &row, const std::array<std::size_t, columns> &widths) {
    std::string line = "|";
    for (std::size_t column = 0; column < columns; ++column) {
        line += " " + row[column] + std::string(widths[column] - widthOf(row[column]), ' ') + " |";
    }
    return line + "\n";
}

template <typename Number>
nlohmann::json optionalNumber(const std::optional<Number> &number) {
    return number ? nlohmann::json(*number) : nlohmann::json();
}

nlohmann::json jsonOf(const Figure &figure) {
    nlohmann::json parts = nlohmann::json::array();
    for (const Part &part : figure.parts) {
        parts.push_back({{"name", part.name}, {"amount", part.amount}});
    }
    nlohmann::json referenceJson;
    if (figure.reference) {
        referenceJson = {{"name", figure.reference->name}, {"median", figure.reference->median}};
    }
    return {{"name", figure.name},
            {"unit", figure.unit},
            {"target", figure.target.text()},
            {"median", figure.median},
            {"p99", figure.p99},
            {"reference", referenceJson},
            {"ratio", optionalNumber(figure.ratio())},
            {"parts", parts},
            {"isMet", figure.isMet()}};
}

} // namespace

std::string FigureTable::text() const {
    std::vector<Row> rows{{"figure", "target", "median", "p99", "ratio to", "met"}};
    for (const Figure &figure : figures) {
        rows.push_back(rowOf(figure));
    }
    std::array<std::size_t, columns> widths{};
    for (const Row &row : rows) {
        for (std::size_t column = 0; column < columns; ++column) {
            widths[column] = std::max(widths[column], widthOf(row[column]));
        }
    }
    Row rule;
    for (std::size_t column = 0; column < columns; ++column) {
        rule[column] = std::string(widths[column], '-');
    }
    rows.insert(rows.begin() + 1, rule);
    std::string text = machine.text() + "\n\n";
    for (const Row &row : rows) {
        text += lineOf(row, widths);
    }
    return text;
}

bool FigureTable::write(const std::filesystem::path &file) const {
    nlohmann::json figuresJson = nlohmann::json::array();
    for (const Figure &figure : figures) {
        figuresJson.push_back(jsonOf(figure));
    }
    const nlohmann::json all{{"machine", machine.text()}, {"figures", figuresJson}};
    std::filesystem::create_directories(file.parent_path());
    std::ofstream stream(file);
    stream << all.dump(2) << "\n";
    return stream.good();
}

} // namespace corvane::bench
