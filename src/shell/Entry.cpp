#include "shell/Entry.h"

#include "foundation/Log.h"
#include "interface/Style.h"
#include "platform/Application.h"
#include "platform/Journal.h"
#include "shell/ProcessGuard.h"
#include "shell/QuillstacksApp.h"
#include "shell/Termination.h"

#include <QApplication>

namespace Quillstacks {

void setUpProcess() {
    QCoreApplication::setApplicationName(QStringLiteral("Quillstacks"));
    QGuiApplication::setApplicationDisplayName(QStringLiteral("Quillstacks"));
    QGuiApplication::setDesktopFileName(QStringLiteral("app.Quillstacks"));
    // The end of some transfer or dialog does not end the program.
    QCoreApplication::setQuitLockEnabled(false);
}

int runProgram(QApplication& application) {
    Log::setSink(Journal::sink());
    ProcessGuard guard;
    if (const auto status = guard.enter())
        return *status;
    installStyle(application);
    QuillstacksApp program;
    program.serve(guard.instance());
    Application::observeTermination(&program, &terminate);
    return QApplication::exec();
}

} // namespace Quillstacks
