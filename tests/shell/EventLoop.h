#pragma once

#include "foundation/MainQueue.h"

#include <QCoreApplication>
#include <QTimer>

#include <functional>

namespace Quillstacks {

/// Runs the application's event loop with `action` as the first thing in it, until something ends the program; its
/// status, or -1 when nothing did for five seconds.
inline int runUntilExit(std::function<void()> action) {
    QTimer limit;
    limit.setSingleShot(true);
    QObject::connect(&limit, &QTimer::timeout, qApp, [] { QCoreApplication::exit(-1); });
    limit.start(5000);
    MainQueue::async(nullptr, std::move(action));
    return QCoreApplication::exec();
}

} // namespace Quillstacks
