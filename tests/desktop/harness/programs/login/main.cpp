#include "CommandInput.h"
#include "LoginManagerObject.h"

#include <QCoreApplication>
#include <QVariantMap>

namespace {

using corvane::desktop::LoginManagerObject;

bool carryOut(LoginManagerObject &manager, const std::string &command) {
    if (command == "lock") {
        return manager.sendLock(QStringLiteral("Lock"));
    }
    if (command == "unlock") {
        return manager.sendLock(QStringLiteral("Unlock"));
    }
    if (command == "switch away") {
        return manager.sendActive(false);
    }
    if (command == "sleep") {
        return manager.sendSleep();
    }
    return command == "is known" && manager.sessionRequests() > 0;
}

} // namespace

int main(int argc, char **argv) {
    const QCoreApplication application(argc, argv);
    LoginManagerObject manager;
    const corvane::desktop::CommandInput input(
        [&manager](const auto &fields) { return carryOut(manager, fields.front()); });
    return manager.appear() ? QCoreApplication::exec() : 1;
}
