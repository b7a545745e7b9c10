#include "ReaderProgram.h"

#include <QCoreApplication>

int main(int argc, char **argv) {
    const QCoreApplication application(argc, argv);
    corvane::desktop::ReaderProgram program;
    return program.appear() ? QCoreApplication::exec() : 1;
}
