#pragma once

#include <QCoroTask>

#include <QString>

#include <optional>

namespace Quillstacks {

/// A language model that this computer runs itself.
class SystemLanguageModel final {
public:
    /// The general one. Taking it asks nothing of the computer: whether it can be had shows when a session asks it.
    [[nodiscard]] static SystemLanguageModel defaultModel() { return {}; }

private:
    SystemLanguageModel() = default;
};

/// How the words of an answer are chosen.
enum class SamplingMode {
    greedy, ///< always the likeliest
};

/// Wishes for one answer. What is absent is left to the model's own defaults.
struct GenerationOptions {
    std::optional<SamplingMode> sampling;
    std::optional<double> temperature; ///< from 0 on; the higher, the less predictable
    std::optional<int> maximumResponseTokens;

    friend bool operator==(const GenerationOptions&, const GenerationOptions&) = default;
};

/// Asks a model under fixed instructions, without tools. Each turn stands alone: a session remembers none of them.
class LanguageModelSession final {
public:
    struct Response {
        QString content; ///< the text of the answer, as the model gave it
    };

    LanguageModelSession(SystemLanguageModel model, QString instructions);

    /// Sends one turn of the user's and awaits the whole answer, on the main thread. The session may be gone before the
    /// answer comes. Throws LanguageModelError.
    [[nodiscard]] QCoro::Task<Response> respond(QString prompt, GenerationOptions options) const;

private:
    QString instructions;
};

} // namespace Quillstacks
