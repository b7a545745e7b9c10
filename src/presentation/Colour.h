#pragma once

namespace corvane {

/// A colour by role; the back end gives the shade of the system in use.
enum class ColourName { clear, black, white, systemBlue, systemGreen, systemOrange, systemPink };

/// A named colour with an opacity from 0 (invisible) to 1 (opaque).
struct Colour {
    ColourName name = ColourName::clear;
    double alpha = 1;

    bool operator==(const Colour &) const = default;
};

} // namespace corvane
