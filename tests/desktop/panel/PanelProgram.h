#pragma once

#include "ItemWatcher.h"

#include <QSocketNotifier>

#include <string>

namespace corvane::desktop {

/// Carries out commands from standard input and reports to standard output, a line each with
/// fields between tabs, until the input ends. Needs Qt's event loop.
class PanelProgram {
  public:
    PanelProgram();

    bool appear() { return watcher_.appear(); }

  private:
    void readCommands();
    void carryOut(const std::string &line) const;
    void reportMenu() const;
    bool choose(const std::string &label) const;

    ItemWatcher watcher_;
    QSocketNotifier input_;
    std::string text_;
};

} // namespace corvane::desktop
