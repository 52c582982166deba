#pragma once

#include "platform/LanguageModel.h"

#include <QByteArray>

#include <optional>

namespace Quillstacks::ChatCompletion {

/// The body of a request: the instructions as the system's turn, the prompt as the user's, no streaming, and of the
/// options those that are there.
[[nodiscard]] QByteArray request(const QString& instructions, const QString& prompt, const GenerationOptions& options);
/// The text of an answer; none when it isn't one.
[[nodiscard]] std::optional<QString> content(const QByteArray& answer);
/// What a refusal says, cut to a length that fits a sentence; empty when it says nothing that can be read.
[[nodiscard]] QString refusal(const QByteArray& answer);

} // namespace Quillstacks::ChatCompletion
