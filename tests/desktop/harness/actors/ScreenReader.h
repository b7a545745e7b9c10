#pragma once

#include "HelperProgram.h"
#include "servers/VirtualDesktop.h"

#include <string>
#include <vector>

namespace corvane::desktop {

/// A screen reader on a desktop that is accessible. Programs started after it speak to it.
class ScreenReader {
  public:
    explicit ScreenReader(const VirtualDesktop &desktop);

    /// What is said about everything in the window of that title, a line each in the order of
    /// reading; nothing without such a window.
    std::vector<std::string> window(const std::string &title);

    /// What is said about the control that has the keyboard; empty when none has.
    std::string focus();

  private:
    HelperProgram program_;
};

} // namespace corvane::desktop
