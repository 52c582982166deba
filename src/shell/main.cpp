#include "shell/Entry.h"

#include <QApplication>

#include <array>

int main(int, char** argv) {
    // The program takes no arguments, the toolkit's own included. This one names the windows after the desktop entry.
    char option[] = "-name";
    char name[] = "app.Quillstacks";
    std::array<char*, 4> arguments = {argv[0], option, name, nullptr};
    int count = 3;
    Quillstacks::setUpProcess();
    QApplication application(count, arguments.data());
    return Quillstacks::runProgram(application);
}
