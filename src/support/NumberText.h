#pragma once

#include "support/Geometry.h"

#include <string>

namespace corvane {

/// The shortest decimal form that reads back to the same value, always with a fraction or an
/// exponent: "1.0", "0.1", "3600.0", "1e-05".
std::string decimalText(double value);

/// The same without a fraction where the value is whole: "100", "0.5". For JSON.
std::string shortestNumberText(double value);

/// With exactly so many decimals, as printf's "%.2f" in the C locale.
std::string fixedNumberText(double value, int decimals);

/// Without its fraction: "-7" for -7.9. A number too large for 64 bits is given by
/// `shortestNumberText`.
std::string truncatedNumberText(double value);

/// "(x, y, width, height)" with each number as by `decimalText`.
std::string rectangleText(const Rectangle &rectangle);

} // namespace corvane
