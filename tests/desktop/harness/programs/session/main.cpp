#include <QCoreApplication>

// Behind those of Qt: its macros take names that Qt uses.
#include "SessionManagerProgram.h"

int main(int argc, char **argv) {
    const QCoreApplication application(argc, argv);
    corvane::desktop::SessionManagerProgram program;
    return program.listen() ? QCoreApplication::exec() : 1;
}
