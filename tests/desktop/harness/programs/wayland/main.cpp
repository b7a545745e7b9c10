#include "ClientProgram.h"

#include <QCoreApplication>

int main(int argc, char **argv) {
    const QCoreApplication application(argc, argv);
    auto connection = corvane::wayland::Connection::open();
    if (!connection) {
        return 1;
    }
    const corvane::desktop::ClientProgram program(std::move(connection));
    return QCoreApplication::exec();
}
