#pragma once

#include "ChildProcess.h"
#include "servers/Desktop.h"

#include <cstddef>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace corvane::desktop {

/// A program beside the one under test that carries out commands and answers in lines.
class HelperProgram {
  public:
    HelperProgram(const Desktop &desktop, const std::string &program)
        : HelperProgram(desktop, std::vector{program}) {}
    HelperProgram(const Desktop &desktop, std::vector<std::string> arguments)
        : process_(desktop.start(std::move(arguments))) {}

    /// The lines of the answer; the last one is "done" or "refused". Lines that say
    /// `notice` are no part of a reply and are left out. Throws when no answer comes.
    std::vector<std::string> request(const std::string &command, const std::string &notice = {});

    /// Throws when the command is refused.
    void demand(const std::string &command);

    ChildProcess &process() { return *process_; }
    const ChildProcess &process() const { return *process_; }

  private:
    std::unique_ptr<ChildProcess> process_;
    std::size_t readLines_ = 0;
};

} // namespace corvane::desktop
