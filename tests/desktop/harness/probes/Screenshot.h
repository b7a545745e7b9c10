#pragma once

#include "DisplayConnection.h"
#include "actors/Pointer.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <vector>

namespace corvane::desktop {

/// The colour of a pixel, each part from 0 to 255.
struct Pixel {
    int red = 0;
    int green = 0;
    int blue = 0;

    bool operator==(const Pixel &) const = default;
};

/// What the whole desktop looks like at one moment, without the mouse cursor.
class Screenshot {
  public:
    /// Throws when the server gives no picture.
    explicit Screenshot(const DisplayConnection &connection);

    int width() const { return width_; }
    int height() const { return height_; }

    /// Black outside the desktop.
    Pixel at(Position position) const;

    /// How many pixels of the square around `center` satisfy the condition.
    int count(Position center, int radius, const std::function<bool(Pixel)> &condition) const;

    bool operator==(const Screenshot &) const = default;

    /// Whether the file could be written.
    bool savePng(const std::filesystem::path &path) const;

  private:
    int width_;
    int height_;
    /// Row by row, 0x00RRGGBB.
    std::vector<std::uint32_t> pixels_;
};

} // namespace corvane::desktop
