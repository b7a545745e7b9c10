#include "PanelProgram.h"

#include <QCoreApplication>

int main(int argc, char **argv) {
    const QCoreApplication application(argc, argv);
    corvane::desktop::PanelProgram program;
    return program.appear() ? QCoreApplication::exec() : 1;
}
