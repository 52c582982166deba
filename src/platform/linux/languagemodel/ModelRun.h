#pragma once

#include "languagemodel/ModelFiles.h"
#include "languagemodel/RuntimeProcess.h"
#include "platform/http/HttpExchange.h"

#include <memory>

namespace Quillstacks {

/// One life of the runtime, from its start until it is of no more use.
class ModelRun final : public QObject {
    Q_OBJECT
public:
    explicit ModelRun(ModelFiles files);

    void start();
    /// Whether it answers requests.
    [[nodiscard]] bool isReady() const { return ready; }
    [[nodiscard]] const ModelFiles& files() const { return modelFiles; }
    /// Asks for an answer.
    [[nodiscard]] std::unique_ptr<HttpExchange> post(const QString& path, const QByteArray& body,
                                                     std::chrono::nanoseconds limit) const;

Q_SIGNALS:
    void becameReady();
    /// Its end, at any time. Nothing comes after it.
    void failed(const LanguageModelError& error);

private:
    void askForHealth();
    void takeHealth(const HttpExchange& health);
    void fail(LanguageModelError::Case what, const QString& detail = {});
    [[nodiscard]] QUrl url(const QString& path) const;

    ModelFiles modelFiles;
    quint16 port = 0;
    QByteArray key;
    RuntimeProcess process;
    bool ready = false;
    bool hasFailed = false;
};

} // namespace Quillstacks
