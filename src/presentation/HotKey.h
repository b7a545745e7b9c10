#pragma once

namespace corvane {

/// A key combination by what is printed on the keys. Back ends translate it into key codes and into
/// the text their system writes for it.
struct HotKey {
    /// 'A' to 'Z'.
    char letter = 0;
    /// Command on a Mac, Super elsewhere.
    bool command = false;
    bool shift = false;

    bool operator==(const HotKey &) const = default;
};

/// Starts and stops clicking.
inline constexpr HotKey startStopKey{.letter = 'Y', .command = true, .shift = true};

} // namespace corvane
