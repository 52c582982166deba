#pragma once

#include <QCoroTask>

#include <QString>

namespace Quillstacks {

/// A language model that answers one turn. A provider keeps nothing from one call to the next.
class ModelProvider {
public:
    ModelProvider() = default;
    virtual ~ModelProvider() = default;
    Q_DISABLE_COPY_MOVE(ModelProvider)

    /// The model's whole answer, as plain text, to the user's turn `prompt` under the instructions `systemPrompt`.
    /// Awaited on the main thread. The provider must outlive the task. Throws what derives from std::exception; a
    /// LocalizedError where there is something to tell the user.
    [[nodiscard]] virtual QCoro::Task<QString> generate(QString prompt, QString systemPrompt) = 0;
};

} // namespace Quillstacks
