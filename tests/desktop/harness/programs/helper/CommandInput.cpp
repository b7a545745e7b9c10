#include "CommandInput.h"

#include "TextFile.h"

#include <QCoreApplication>

#include <array>
#include <cstdio>
#include <utility>

#include <unistd.h>

namespace corvane::desktop {

CommandInput::CommandInput(CarryOut carryOut)
    : carryOut_(std::move(carryOut)),
      input_(STDIN_FILENO, QSocketNotifier::Read) {
    QObject::connect(&input_, &QSocketNotifier::activated, [this] { readCommands(); });
}

void CommandInput::readCommands() {
    std::array<char, 4096> buffer{};
    const ssize_t length = read(STDIN_FILENO, buffer.data(), buffer.size());
    if (length <= 0) {
        QCoreApplication::quit();
        return;
    }
    text_.append(buffer.data(), static_cast<std::size_t>(length));
    for (const std::string &line : wholeLines(text_)) {
        report(carryOut_(split(line, '\t')) ? "done" : "refused");
    }
    text_.erase(0, text_.rfind('\n') + 1);
}

void report(const std::string &line) {
    std::puts(line.c_str());
    std::fflush(stdout);
}

} // namespace corvane::desktop
