#include "shell/Entry.h"

#include <QApplication>

int main(int, char** argv) {
    // The program takes no arguments, the toolkit's own included.
    int count = 1;
    Quillstacks::setUpProcess();
    QApplication application(count, argv);
    return Quillstacks::runProgram(application);
}
