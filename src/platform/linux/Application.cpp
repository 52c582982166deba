#include "platform/Application.h"

#include "platform/Windows.h"

#include <QApplication>
#include <QSocketNotifier>
#include <QWidget>

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace Quillstacks {

namespace {

int writeEnd = -1;

// A signal handler may do next to nothing; the rest happens in the event loop, where the pipe is read.
void noteSignal(int) {
    const int error = errno;
    const char byte = 0;
    [[maybe_unused]] const ssize_t written = ::write(writeEnd, &byte, 1);
    errno = error;
}

void install(int signalNumber) {
    struct sigaction present {};
    // What was started to ignore a signal ("nohup") goes on ignoring it.
    if (::sigaction(signalNumber, nullptr, &present) != 0 || present.sa_handler == SIG_IGN)
        return;
    struct sigaction action {};
    action.sa_handler = noteSignal;
    // A second signal ends a process that did not get to its event loop.
    action.sa_flags = SA_RESTART | static_cast<int>(SA_RESETHAND);
    ::sigemptyset(&action.sa_mask);
    ::sigaction(signalNumber, &action, nullptr);
}

} // namespace

bool Application::setActivationPolicy(ActivationPolicy policy) {
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->isVisible() && window->windowType() == Qt::Window)
            Windows::setSkipTaskbar(window, policy == ActivationPolicy::accessory);
    return true;
}

void Application::observeTermination(QObject* context, std::function<void()> asked) {
    int ends[2] = {-1, -1};
    if (::pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0)
        return; // the signals keep their usual effect
    const int readEnd = ends[0];
    writeEnd = ends[1];
    auto* notifier = new QSocketNotifier(readEnd, QSocketNotifier::Read, context);
    QObject::connect(notifier, &QSocketNotifier::activated, context, [readEnd, asked = std::move(asked)] {
        char bytes[16];
        while (::read(readEnd, bytes, sizeof bytes) > 0)
            continue;
        asked();
    });
    for (const int signalNumber : {SIGTERM, SIGINT, SIGHUP})
        install(signalNumber);
}

} // namespace Quillstacks
