// A start of the program, cut down to the question whether it is the first. Says "first" or "handed over", and whether
// there was a session bus. With "ends when asked" it stays while it is the first, and is gone the moment another start
// asks it to come forward, without an answer.

#include "platform/SingleInstance.h"

#include <QCoreApplication>

#include <cstdio>
#include <cstdlib>

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    Quillstacks::SingleInstance instance;
    const bool isFirst = instance.start() == Quillstacks::SingleInstance::Outcome::first;
    std::printf("%s, %s", isFirst ? "first" : "handed over", instance.hasBus() ? "bus" : "no bus");
    std::fflush(stdout);
    if (!isFirst || argc < 2 || qstrcmp(argv[1], "ends when asked") != 0)
        return 0;
    QObject::connect(&instance, &Quillstacks::SingleInstance::activated, &instance, [] { std::_Exit(0); });
    return QCoreApplication::exec();
}
