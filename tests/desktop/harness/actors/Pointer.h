#pragma once

#include "DisplayConnection.h"

namespace corvane::desktop {

/// A position on the root window, in pixels.
struct Position {
    int x = 0;
    int y = 0;

    bool operator==(const Position &) const = default;
};

/// The mouse, moved as hardware would. Every call returns when the server has carried it out.
class Pointer {
  public:
    /// The connection outlives it.
    explicit Pointer(const DisplayConnection &connection) : connection_(connection) {}

    void moveTo(Position position) const;
    Position position() const;

    void press(int button = 1) const;
    void release(int button = 1) const;
    void click(int button = 1) const;
    void drag(Position from, Position to) const;

    /// Whether the left button is down as far as the server knows.
    bool isLeftButtonDown() const;

  private:
    const DisplayConnection &connection_;
};

} // namespace corvane::desktop
