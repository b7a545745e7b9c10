#include "PanelProgram.h"

#include "ItemMenu.h"

namespace corvane::desktop {

namespace {

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

bool PanelProgram::carryOut(const std::vector<std::string> &fields) const {
    if (fields.front() == "menu") {
        reportMenu();
        return true;
    }
    return choose(fields.at(1));
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
