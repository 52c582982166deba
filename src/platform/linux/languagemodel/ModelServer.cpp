#include "languagemodel/ModelServer.h"

#include "foundation/MainQueue.h"

#include <QCoreApplication>
#include <QCoroSignal>

namespace Quillstacks {

namespace {

using namespace std::chrono_literals;
constexpr auto idleLimit = 5min;

} // namespace

ModelServer& ModelServer::shared() {
    // Never destroyed: what awaits an answer may outlive other statics.
    static ModelServer& instance = *new ModelServer;
    return instance;
}

ModelServer::ModelServer() {
    connect(QCoreApplication::instance(), &QCoreApplication::aboutToQuit, this, &ModelServer::end);
}

ModelServer::Use::Use(ModelServer& wanted) : server(wanted) {
    ++server.uses;
    ++server.lastUse;
}

ModelServer::Use::~Use() {
    if (--server.uses > 0)
        return;
    MainQueue::after(idleLimit, &server, [&idle = server, number = ++server.lastUse] {
        if (idle.lastUse == number)
            idle.end();
    });
}

QCoro::Task<const ModelRun*> ModelServer::ready() {
    choose();
    while (run && !run->isReady())
        co_await qCoro(this, &ModelServer::settled);
    if (!run)
        throw failure.value_or(LanguageModelError(LanguageModelError::Case::ended, ModelFiles::folder()));
    co_return run.get();
}

void ModelServer::choose() {
    ModelFiles files = ModelFiles::find();
    if (run && (run->files() == files || isSharedByOthers()))
        return;
    end();
    start(std::move(files));
}

void ModelServer::start(ModelFiles files) {
    failure.reset();
    run = std::make_unique<ModelRun>(std::move(files));
    connect(run.get(), &ModelRun::becameReady, this, &ModelServer::settled);
    connect(run.get(), &ModelRun::failed, this, [this](const LanguageModelError& error) {
        failure = error;
        // The run is telling of its end right now: its object can't go before it has.
        run.release()->deleteLater();
        Q_EMIT settled();
    });
    run->start();
}

void ModelServer::giveUp() {
    if (!isSharedByOthers())
        end();
}

void ModelServer::end() {
    run.reset();
}

} // namespace Quillstacks
