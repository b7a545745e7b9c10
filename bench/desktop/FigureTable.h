#pragma once

#include "Figure.h"
#include "Machine.h"

#include <filesystem>
#include <string>
#include <vector>

namespace corvane::bench {

/// Everything that was measured, and where.
struct FigureTable {
    Machine machine;
    std::vector<Figure> figures;

    /// In Markdown, with the columns under each other.
    std::string text() const;

    /// Writes it as JSON, making the folder where missing; false when that fails.
    bool write(const std::filesystem::path &file) const;
};

} // namespace corvane::bench
