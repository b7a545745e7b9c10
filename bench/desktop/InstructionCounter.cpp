#include "InstructionCounter.h"

namespace corvane::bench {

InstructionCounter::InstructionCounter(const desktop::Desktop &desktop)
    : desktop_(desktop),
      folder_(desktop.folder() / "instructions") {
    std::filesystem::create_directories(folder_);
}

std::vector<std::string> InstructionCounter::launcher() const {
    return {"valgrind",
            "--quiet",
            "--tool=callgrind",
            "--separate-threads=yes",
            "--vgdb-prefix=" + (folder_ / "vgdb").string(),
            "--callgrind-out-file=" + (folder_ / "profile.%p").string()};
}

InstructionCounter::Counts InstructionCounter::take(pid_t program) {
    const std::string process = std::to_string(program);
    desktop_.run(
        {"vgdb", "--vgdb-prefix=" + (folder_ / "vgdb").string(), "--pid=" + process, "dump"});
    const std::string part = "profile." + process + "." + std::to_string(++parts_) + "-";
    Counts counts{.mainThread = CallProfile(folder_ / (part + "01"))};
    for (const auto &file : std::filesystem::directory_iterator(folder_)) {
        if (file.path().filename().string().starts_with(part)) {
            counts.allThreads += CallProfile(file.path()).total();
        }
    }
    return counts;
}

} // namespace corvane::bench
