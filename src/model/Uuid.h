#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace corvane {

/// A universally unique identifier.
class Uuid {
  public:
    /// A new random one (version 4).
    static Uuid random();

    /// From the 36-character text form in either case; nothing for any other text.
    static std::optional<Uuid> fromText(std::string_view text);

    /// The text form in upper case.
    std::string text() const;

    bool operator==(const Uuid &) const = default;

  private:
    std::array<std::uint8_t, 16> bytes_{};
};

} // namespace corvane
