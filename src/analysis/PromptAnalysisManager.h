#pragma once

#include "analysis/answer/PromptAnalysis.h"

#include <QCoroTask>

#include <QObject>

#include <memory>

namespace Quillstacks {

class ModelProvider;

/// Has prompts rated by the model that the preferences name, one at a time. Belongs to one open editor. It may be
/// destroyed while an analysis runs; that goes on to its end without it.
class PromptAnalysisManager final : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool isAnalyzing READ isAnalyzing NOTIFY isAnalyzingChanged)
public:
    explicit PromptAnalysisManager(QObject* parent = nullptr) : QObject(parent) {}

    [[nodiscard]] bool isAnalyzing() const { return analyzing; }
    /// Rates a prompt's text as it stands, an empty one too. Throws AnalysisError; a failure of Ollama raises a notice
    /// as well.
    [[nodiscard]] QCoro::Task<PromptAnalysis> analyze(QString prompt);

    /// A new one for each analysis, as the preferences stand at the moment.
    [[nodiscard]] static std::unique_ptr<ModelProvider> makeProvider();

Q_SIGNALS:
    void isAnalyzingChanged();

private:
    void setAnalyzing(bool isAnalyzing);

    bool analyzing = false;
};

} // namespace Quillstacks
