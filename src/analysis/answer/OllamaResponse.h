#pragma once

#include <QString>

namespace Quillstacks {

/// What is read of an Ollama server's answer.
struct OllamaResponse {
    struct Message {
        QString content;
    };
    Message message;

    /// Both keys are required, others are ignored. Throws JsonError.
    [[nodiscard]] static OllamaResponse fromJson(const QByteArray& json);
};

} // namespace Quillstacks
