#include "platform/FakeDesktop.h"
#include "platform/Updates.h"

#include <QCoroSignal>

namespace Quillstacks {

namespace {

/// For what never answers: a signal that nobody emits.
QObject& silence() {
    static QObject object;
    return object;
}

/// The next turn of the loop, which the network needs at least.
QCoro::Task<> nextTurn() {
    QObject turn;
    QMetaObject::invokeMethod(
        &turn, [&turn] { turn.setObjectName(QStringLiteral("come")); }, Qt::QueuedConnection);
    co_await qCoro(&turn, &QObject::objectNameChanged);
}

} // namespace

QString Updates::keptUpToDateBy() {
    return FakeDesktop::shared().updateKeeper;
}

QCoro::Task<QByteArray> Updates::fetch(QUrl url, qint64 limit) {
    FakeDesktop& desktop = FakeDesktop::shared();
    desktop.note(QStringLiteral("fetch %1 %2").arg(url.toString(), QString::number(limit)));
    if (!desktop.fetchAnswer)
        co_await qCoro(&silence(), &QObject::objectNameChanged);
    const auto answer = desktop.fetchAnswer;
    co_await nextTurn();
    co_return answer(url);
}

QCoro::Task<QString> Updates::download(SignedFile file) {
    FakeDesktop& desktop = FakeDesktop::shared();
    desktop.note(QStringLiteral("download %1 as %2").arg(file.url.toString(), file.name));
    if (!desktop.downloadAnswer)
        co_await qCoro(&silence(), &QObject::objectNameChanged);
    const auto answer = desktop.downloadAnswer;
    co_await nextTurn();
    co_return answer(file);
}

} // namespace Quillstacks
