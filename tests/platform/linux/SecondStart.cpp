// A start of the program, cut down to the question whether it is the first. Says "first" or "handed over", and whether
// there was a session bus.

#include "platform/SingleInstance.h"

#include <QCoreApplication>

#include <cstdio>

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    Quillstacks::SingleInstance instance;
    const bool isFirst = instance.start() == Quillstacks::SingleInstance::Outcome::first;
    std::printf("%s, %s", isFirst ? "first" : "handed over", instance.hasBus() ? "bus" : "no bus");
    return 0;
}
