#pragma once

#include <QAction>
#include <QCoroSignal>

namespace Quillstacks {

/// What a coroutine of the tests' desktop waits at until somebody opens it; then all go on that wait. A signal of
/// QObject itself would not do: Qt leaves out its private argument, which the one who awaits it wants to bind.
class Gate final {
public:
    [[nodiscard]] QCoro::Task<> opened() { co_await qCoro(&signal, &QAction::triggered); }
    void open() { signal.trigger(); }
    void openOnNextTurn() { QMetaObject::invokeMethod(&signal, &QAction::trigger, Qt::QueuedConnection); }

private:
    QAction signal;
};

} // namespace Quillstacks
