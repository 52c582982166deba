#include "platform/FakeDesktop.h"
#include "platform/LanguageModel.h"

#include <QCoroSignal>

namespace Quillstacks {

namespace {

/// What the held turns wait for. Its name changes when they are let go; that signal is at hand.
QObject& gate() {
    static QObject object;
    return object;
}

QCoro::Task<LanguageModelSession::Response> answer(FakeDesktop::ModelTurn turn) {
    while (FakeDesktop::shared().modelIsHeld)
        co_await qCoro(&gate(), &QObject::objectNameChanged);
    const auto say = FakeDesktop::shared().modelAnswer;
    co_return LanguageModelSession::Response{say ? say(turn) : QString()};
}

} // namespace

void FakeDesktop::holdModel() {
    modelIsHeld = true;
}

void FakeDesktop::releaseModel() {
    modelIsHeld = false;
    static int releases = 0;
    gate().setObjectName(QString::number(++releases));
}

LanguageModelSession::LanguageModelSession(SystemLanguageModel, QString text) : instructions(std::move(text)) {
    FakeDesktop::shared().note(QStringLiteral("LanguageModelSession"));
}

QCoro::Task<LanguageModelSession::Response> LanguageModelSession::respond(QString prompt,
                                                                          GenerationOptions options) const {
    FakeDesktop& desktop = FakeDesktop::shared();
    desktop.note(QStringLiteral("respond"));
    const FakeDesktop::ModelTurn& turn =
        desktop.modelTurns.emplace_back(FakeDesktop::ModelTurn{instructions, std::move(prompt), options});
    return answer(turn);
}

} // namespace Quillstacks
