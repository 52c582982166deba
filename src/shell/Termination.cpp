#include "shell/Termination.h"

#include <QCoreApplication>

namespace Quillstacks {

void terminate() {
    // Not quit(): that asks every window to close first, and the windows go with the program anyway.
    QCoreApplication::exit(0);
}

} // namespace Quillstacks
