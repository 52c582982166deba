#pragma once

#include "analysis/ModelProvider.h"

namespace Quillstacks {

/// A model behind the chat interface of an Ollama server: one HTTP request a call, without retries.
class OllamaModelProvider final : public ModelProvider {
public:
    /// The server's base as the user typed it: the path is appended as it stands.
    OllamaModelProvider(QString baseURL, QString model);

    /// Throws OllamaError, and JsonError for an answer of the status 200 that can't be read.
    [[nodiscard]] QCoro::Task<QString> generate(QString prompt, QString systemPrompt) override;

    const QString baseURL;
    const QString model;
};

} // namespace Quillstacks
