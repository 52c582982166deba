#include "platform/FakeDesktop.h"
#include "platform/Gate.h"
#include "platform/Updates.h"

namespace Quillstacks {

namespace {

/// What a server that is silent keeps waiting.
Gate& silence() {
    static Gate gate;
    return gate;
}

/// The next turn of the loop, which the network needs at least.
QCoro::Task<> nextTurn() {
    Gate turn;
    turn.openOnNextTurn();
    co_await turn.opened();
}

} // namespace

void FakeDesktop::endSilence() {
    silence().open();
}

QString Updates::keptUpToDateBy() {
    return FakeDesktop::shared().updateKeeper;
}

QCoro::Task<QByteArray> Updates::fetch(QUrl url, qint64 limit) {
    FakeDesktop& desktop = FakeDesktop::shared();
    desktop.note(QStringLiteral("fetch %1 %2").arg(url.toString(), QString::number(limit)));
    if (!desktop.fetchAnswer) {
        co_await silence().opened();
        co_return {};
    }
    const auto answer = desktop.fetchAnswer;
    co_await nextTurn();
    co_return answer(url);
}

QCoro::Task<QString> Updates::download(SignedFile file) {
    FakeDesktop& desktop = FakeDesktop::shared();
    desktop.note(QStringLiteral("download %1 as %2").arg(file.url.toString(), file.name));
    if (!desktop.downloadAnswer) {
        co_await silence().opened();
        co_return {};
    }
    const auto answer = desktop.downloadAnswer;
    co_await nextTurn();
    co_return answer(file);
}

} // namespace Quillstacks
