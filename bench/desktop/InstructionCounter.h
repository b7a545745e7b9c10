#pragma once

#include "CallProfile.h"
#include "harness/servers/Desktop.h"

#include <filesystem>
#include <string>
#include <vector>

namespace corvane::bench {

/// Counts the instructions a program executes in user mode, with valgrind's callgrind. Unlike times
/// they are the same on every machine and under any load.
class InstructionCounter {
  public:
    /// The desktop outlives the counter.
    explicit InstructionCounter(const desktop::Desktop &desktop);

    /// What a program is started with to be counted.
    std::vector<std::string> launcher() const;

    struct Counts {
        CallProfile mainThread;
        double allThreads = 0;
    };
    /// What the program has executed since its start or since the last call.
    Counts take(pid_t program);

  private:
    const desktop::Desktop &desktop_;
    std::filesystem::path folder_;
    int parts_ = 0;
};

} // namespace corvane::bench
