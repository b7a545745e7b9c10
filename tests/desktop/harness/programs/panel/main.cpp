// A panel that shows status items, as far as a test of the real program needs one. Its commands:
// "menu" reports the lines of the menu, "choose" with a label chooses from it.

#include "CommandInput.h"
#include "FakePanel.h"

#include <QCoreApplication>

namespace {

using namespace corvane::desktop;

void reportItem(const PanelMenuItem &item, int depth) {
    const auto value = [&item](const char *name) {
        return item.properties.value(QString::fromLatin1(name));
    };
    const bool isSeparator = value("type").toString() == QLatin1String("separator");
    const bool isEnabled = !value("enabled").isValid() || value("enabled").toBool();
    const bool isChecked = value("toggle-state").toInt() == 1;
    report("line\t" + std::to_string(depth) + (isSeparator ? "\t1" : "\t0") +
           (isEnabled ? "\t1" : "\t0") + (isChecked ? "\t1" : "\t0") + "\t" +
           item.label().toStdString());
    for (const PanelMenuItem &child : item.children) {
        reportItem(child, depth + 1);
    }
}

bool reportMenu(FakePanel &panel) {
    for (const PanelMenuItem &item : panel.menu().children) {
        reportItem(item, 0);
    }
    return true;
}

bool choose(FakePanel &panel, const std::string &label) {
    const PanelMenuItem item = panel.line(QString::fromStdString(label));
    return item.id != 0 && panel.choose(item.id);
}

} // namespace

int main(int argc, char **argv) {
    const QCoreApplication application(argc, argv);
    FakePanel panel;
    panel.onRegistration([] { report("registered"); });
    const CommandInput commands([&panel](const std::vector<std::string> &fields) {
        return fields.front() == "menu" ? reportMenu(panel) : choose(panel, fields.at(1));
    });
    return panel.isPresent() ? QCoreApplication::exec() : 1;
}
