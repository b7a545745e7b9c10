#include "platform/linux/environment/Localisation.h"

#include "platform/linux/environment/UserLanguages.h"

#include <QDir>
#include <QFile>

namespace corvane::linux {

namespace {

const QString folder = QStringLiteral(":/translations");
const QString suffix = QStringLiteral(".lproj");

std::vector<std::string> tableNames() {
    std::vector<std::string> names;
    for (const QString &entry : QDir(folder).entryList({QStringLiteral("*") + suffix})) {
        names.push_back(entry.chopped(suffix.size()).toStdString());
    }
    return names;
}

StringTable tableNamed(const std::string &name) {
    QFile file(folder + QLatin1Char('/') + QString::fromStdString(name) + suffix +
               QStringLiteral("/Localizable.strings"));
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    return parsedStringTable(file.readAll().toStdString()).value_or(StringTable());
}

} // namespace

Localisation::Localisation(const std::vector<std::string> &locales)
    : table_(tableNamed(bestTable(locales, tableNames()))) {}

std::string Localisation::text(std::string_view english) const {
    const auto found = table_.find(english);
    return found != table_.end() ? found->second : std::string(english);
}

} // namespace corvane::linux
