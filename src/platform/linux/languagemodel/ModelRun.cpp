#include "languagemodel/ModelRun.h"

#include "foundation/MainQueue.h"
#include "languagemodel/LoopbackPort.h"

#include <QRandomGenerator>

#include <array>
#include <utility>

namespace Quillstacks {

namespace {

using namespace std::chrono_literals;

// A model of many gigabytes, read from a slow disk.
constexpr auto loadingLimit = 5min;
constexpr auto healthInterval = 100ms;

constexpr int statusGood = 200;
constexpr int statusLoading = 503;

QByteArray randomKey() {
    std::array<quint32, 8> numbers{};
    QRandomGenerator::system()->fillRange(numbers.data(), numbers.size());
    return QByteArray::fromRawData(reinterpret_cast<const char*>(numbers.data()), sizeof numbers).toHex();
}

} // namespace

ModelRun::ModelRun(ModelFiles files) : modelFiles(std::move(files)), port(LoopbackPort::takeFree()), key(randomKey()) {}

void ModelRun::start() {
    if (port == 0)
        return fail(LanguageModelError::Case::notStarted, QStringLiteral("no port of this computer is free"));
    connect(&process, &RuntimeProcess::failedToStart, this,
            [this](const QString& reason) { fail(LanguageModelError::Case::notStarted, reason); });
    connect(&process, &RuntimeProcess::ended, this, [this] {
        ready ? fail(LanguageModelError::Case::ended)
              : fail(LanguageModelError::Case::endedWhileLoading, process.complaint());
    });
    process.start(modelFiles, port, key);
    MainQueue::after(loadingLimit, this, [this] {
        if (!ready)
            fail(LanguageModelError::Case::loadingTimedOut);
    });
    askForHealth();
}

void ModelRun::askForHealth() {
    if (hasFailed)
        return;
    // Without the key: this question is open to all, and so far nobody knows who listens.
    HttpRequest question;
    question.method = QByteArrayLiteral("GET");
    question.url = url(QStringLiteral("/health"));
    HttpBounds bounds;
    bounds.whole = loadingLimit;
    auto* health = new HttpExchange(std::move(question), bounds, this);
    connect(health, &HttpExchange::ended, this, [this, health] {
        health->deleteLater();
        takeHealth(*health);
    });
}

void ModelRun::takeHealth(const HttpExchange& health) {
    if (hasFailed)
        return;
    const bool isAnswer = health.outcome() == HttpExchange::Outcome::answered;
    const bool isLoading = !isAnswer || health.status() == statusLoading || !LoopbackPort::isListenedOnByUs(port);
    if (isLoading)
        return MainQueue::after(healthInterval, this, [this] { askForHealth(); });
    if (health.status() != statusGood)
        return fail(LanguageModelError::Case::unreadable, QStringLiteral("status %1").arg(health.status()));
    ready = true;
    Q_EMIT becameReady();
}

QUrl ModelRun::url(const QString& path) const {
    return QUrl(QStringLiteral("http://127.0.0.1:%1%2").arg(QString::number(port), path));
}

std::unique_ptr<HttpExchange> ModelRun::post(const QString& path, const QByteArray& body,
                                             std::chrono::nanoseconds limit) const {
    HttpRequest question;
    question.method = QByteArrayLiteral("POST");
    question.url = url(path);
    question.headers = {{QByteArrayLiteral("Content-Type"), QByteArrayLiteral("application/json")},
                        {QByteArrayLiteral("Authorization"), "Bearer " + key}};
    question.body = body;
    HttpBounds bounds;
    bounds.whole = limit;
    return std::make_unique<HttpExchange>(std::move(question), bounds);
}

void ModelRun::fail(LanguageModelError::Case what, const QString& detail) {
    if (std::exchange(hasFailed, true))
        return;
    Q_EMIT failed(modelFiles.error(what, detail));
}

} // namespace Quillstacks
