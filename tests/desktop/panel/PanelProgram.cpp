#include "PanelProgram.h"

#include "ItemMenu.h"
#include "TextFile.h"

#include <QCoreApplication>

#include <array>
#include <cstdio>
#include <vector>

#include <unistd.h>

namespace corvane::desktop {

namespace {

void report(const std::string &line) {
    std::puts(line.c_str());
    std::fflush(stdout);
}

std::string lineReport(const ItemMenuLine &line) {
    const auto value = [&line](const char *name) {
        return line.properties.value(QString::fromLatin1(name));
    };
    const bool isSeparator = value("type").toString() == QLatin1String("separator");
    const bool isEnabled = !value("enabled").isValid() || value("enabled").toBool();
    const bool isChecked = value("toggle-state").toInt() == 1;
    return "line\t" + std::to_string(line.depth) + (isSeparator ? "\t1" : "\t0") +
           (isEnabled ? "\t1" : "\t0") + (isChecked ? "\t1" : "\t0") + "\t" +
           line.label().toStdString();
}

} // namespace

PanelProgram::PanelProgram() : input_(STDIN_FILENO, QSocketNotifier::Read) {
    QObject::connect(&input_, &QSocketNotifier::activated, [this] { readCommands(); });
}

void PanelProgram::readCommands() {
    std::array<char, 4096> buffer{};
    const ssize_t length = read(STDIN_FILENO, buffer.data(), buffer.size());
    if (length <= 0) {
        QCoreApplication::quit();
        return;
    }
    text_.append(buffer.data(), static_cast<std::size_t>(length));
    for (const std::string &line : wholeLines(text_)) {
        carryOut(line);
    }
    text_.erase(0, text_.rfind('\n') + 1);
}

void PanelProgram::carryOut(const std::string &line) const {
    const std::vector<std::string> fields = split(line, '\t');
    bool isDone = true;
    if (fields.front() == "menu") {
        reportMenu();
    } else {
        isDone = choose(fields.at(1));
    }
    report(isDone ? "done" : "refused");
}

void PanelProgram::reportMenu() const {
    for (const ItemMenuLine &line : ItemMenu(watcher_.item()).lines()) {
        report(lineReport(line));
    }
}

bool PanelProgram::choose(const std::string &label) const {
    const ItemMenu menu(watcher_.item());
    for (const ItemMenuLine &line : menu.lines()) {
        if (line.label().toStdString() == label) {
            return menu.choose(line.id);
        }
    }
    return false;
}

} // namespace corvane::desktop
