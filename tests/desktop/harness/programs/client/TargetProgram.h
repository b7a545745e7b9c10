#pragma once

#include "TargetWindow.h"

#include <xcb/xcb.h>

#include <map>
#include <string>
#include <vector>

namespace corvane::desktop {

/// Carries out commands from standard input and reports to standard output, a line each with
/// fields between tabs, until the input ends.
class TargetProgram {
  public:
    /// The connection outlives it.
    explicit TargetProgram(xcb_connection_t *connection) : connection_(connection) {}

    /// Whether it ended as it should: the input ended before the display did.
    bool run();

  private:
    bool readCommands();
    void carryOut(const std::vector<std::string> &fields);
    void handleEvents();
    void handle(const xcb_generic_event_t &event);
    void reportButton(const xcb_button_press_event_t &event) const;
    int numberOf(xcb_window_t window) const;

    xcb_connection_t *connection_;
    std::map<int, TargetWindow> windows_;
    std::string input_;
};

} // namespace corvane::desktop
