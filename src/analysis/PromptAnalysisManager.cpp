#include "analysis/PromptAnalysisManager.h"

#include "analysis/AnalysisError.h"
#include "analysis/AnalysisPreferences.h"
#include "analysis/answer/JsonCleanUp.h"
#include "analysis/AppleModelProvider.h"
#include "analysis/OllamaError.h"
#include "analysis/OllamaModelProvider.h"
#include "AnalysisPrompt.h"
#include "foundation/Log.h"
#include "interface/ToastManager.h"

#include <QPointer>

namespace Quillstacks {
namespace {

constexpr double failureToastSeconds = 4.0;

QString displayName(ModelProviderType type) {
    return RawValue<ModelProviderType>::rawValue(type);
}

PromptAnalysis decoded(const QString& json) {
    if (!json.isValidUtf16()) {
        Log::data.error(QStringLiteral("Failed to convert cleaned response to data"));
        throw AnalysisError::invalidResponse();
    }
    try {
        return PromptAnalysis::fromJson(json.toUtf8());
    } catch (const std::exception& error) {
        Log::data.error(QStringLiteral("JSON parsing error: ") + localizedDescription(error));
        Log::data.error(QStringLiteral("Failed JSON: ") + Log::redacted(json));
        throw AnalysisError::invalidResponse();
    }
}

/// What a model says of a prompt is as private as the prompt: the log tells that it came, not what it says.
PromptAnalysis readAnswer(const QString& answer) {
    Log::data.info(QStringLiteral("Received analysis response: %1...").arg(Log::redacted(answer)));
    const QString json = cleanJSONResponse(answer);
    Log::data.info(QStringLiteral("Cleaned JSON: %1...").arg(Log::redacted(json)));
    const PromptAnalysis analysis = decoded(json);
    Log::data.info(QStringLiteral("Successfully parsed analysis"));
    return analysis;
}

/// Any failure that is not Ollama's own reads as a lost connection, even where that was sound.
void showOllamaFailure(const std::exception& error) {
    const auto* ollama = dynamic_cast<const OllamaError*>(&error);
    const QString what =
        ollama ? ollama->errorDescription() : QStringLiteral("Ollama connection failed. Make sure Ollama is running.");
    ToastManager::shared().show(what + QStringLiteral(" Try switching to Apple Intelligence in Settings."),
                                failureToastSeconds);
}

} // namespace

std::unique_ptr<ModelProvider> PromptAnalysisManager::makeProvider() {
    if (selectedModelProviderPreference().value() == ModelProviderType::ollama)
        return std::make_unique<OllamaModelProvider>(ollamaBaseURLPreference().value(),
                                                     ollamaModelPreference().value());
    return std::make_unique<AppleModelProvider>();
}

QCoro::Task<PromptAnalysis> PromptAnalysisManager::analyze(QString prompt) {
    if (analyzing)
        throw AnalysisError::alreadyAnalyzing();
    const QPointer<PromptAnalysisManager> self(this); // it may be gone when the answer comes
    setAnalyzing(true);
    const QString providerName = displayName(selectedModelProviderPreference().value());
    Log::data.info(QStringLiteral("Starting prompt analysis using ") + providerName);
    const std::unique_ptr<ModelProvider> provider = makeProvider();
    std::optional<AnalysisError> failure;
    try {
        const QString message = QStringLiteral("Analyze this prompt:\n\n") + prompt;
        const QString answer = co_await provider->generate(message, analysisSystemPrompt());
        PromptAnalysis analysis = readAnswer(answer);
        if (self)
            self->setAnalyzing(false);
        co_return analysis;
    } catch (const std::exception& error) {
        Log::logDataError(QStringLiteral("analyzing prompt with ") + providerName, error);
        if (selectedModelProviderPreference().value() == ModelProviderType::ollama)
            showOllamaFailure(error);
        failure = AnalysisError::apiError(error);
    }
    if (self)
        self->setAnalyzing(false);
    throw *failure;
}

void PromptAnalysisManager::setAnalyzing(bool isAnalyzing) {
    analyzing = isAnalyzing;
    Q_EMIT isAnalyzingChanged();
}

} // namespace Quillstacks
