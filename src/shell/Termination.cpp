#include "shell/Termination.h"

#include "shell/MainWindow.h"

#include <QCoreApplication>

namespace Quillstacks {

void terminate() {
    // Not quit(): that asks every window to close first, and the windows go with the program anyway.
    QCoreApplication::exit(0);
}

void quit() {
    auto* main = qobject_cast<MainWindow*>(MainWindow::find());
    if (main && main->holdsUnsavedTyping())
        main->open();
    else
        terminate();
}

} // namespace Quillstacks
