#include "platform/FakeDesktop.h"
#include "platform/Gate.h"
#include "platform/LanguageModel.h"

namespace Quillstacks {

namespace {

/// What the held turns wait at.
Gate& gate() {
    static Gate held;
    return held;
}

QCoro::Task<LanguageModelSession::Response> answer(FakeDesktop::ModelTurn turn) {
    while (FakeDesktop::shared().modelIsHeld)
        co_await gate().opened();
    const auto say = FakeDesktop::shared().modelAnswer;
    co_return LanguageModelSession::Response{say ? say(turn) : QString()};
}

} // namespace

void FakeDesktop::holdModel() {
    modelIsHeld = true;
}

void FakeDesktop::releaseModel() {
    modelIsHeld = false;
    gate().open();
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
