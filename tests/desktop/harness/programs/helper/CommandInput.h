#pragma once

#include <QSocketNotifier>

#include <functional>
#include <string>
#include <vector>

namespace corvane::desktop {

/// How a test talks to a program that helps it. Commands come from standard input, a line each with
/// fields between tabs; the answer to each are the lines reported meanwhile, and then "done" or
/// "refused". The end of the input ends the program. Needs Qt's event loop.
class CommandInput {
  public:
    /// Carries out a command, given its fields; false where that cannot be done.
    using CarryOut = std::function<bool(const std::vector<std::string> &fields)>;

    explicit CommandInput(CarryOut carryOut);

  private:
    void readCommands();

    CarryOut carryOut_;
    QSocketNotifier input_;
    std::string text_;
};

/// Writes a line to standard output.
void report(const std::string &line);

} // namespace corvane::desktop
