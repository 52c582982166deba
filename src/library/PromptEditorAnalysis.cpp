// The analysis of the prompt that is being edited.
#include "analysis/AnalysisPreferences.h"
#include "analysis/LexiwellPanel.h"
#include "analysis/PromptAnalysisManager.h"
#include "foundation/LocalizedError.h"
#include "foundation/Log.h"
#include "foundation/MainQueue.h"
#include "foundation/Text.h"
#include "interface/Button.h"
#include "library/PromptEditorView.h"
#include "PromptPanelColumn.h"

namespace Quillstacks {
namespace {

/// A panel that is made while the editor is open would be reached by Tab after everything else.
void setTabOrderBefore(const QWidget* next, const LexiwellPanel* panel) {
    QWidget* before = next->previousInFocusChain();
    while (before->focusPolicy() == Qt::NoFocus)
        before = before->previousInFocusChain();
    for (QAbstractButton* stop : panel->findChildren<QAbstractButton*>()) {
        QWidget::setTabOrder(before, stop);
        before = stop;
    }
}

} // namespace

void PromptEditorView::placeLexiwell() {
    const bool enabled = lexiwellEnabledPreference().value();
    if (enabled == (lexiwell != nullptr))
        return;
    lexiwell = enabled ? new LexiwellPanel([this] { analyzePrompt(); }) : nullptr;
    panels->setAnalysisPanel(lexiwell); // deletes an older one
    if (!lexiwell)
        return;
    if (deleteButton)
        setTabOrderBefore(deleteButton, lexiwell);
    connect(lexiwell, &LexiwellPanel::collapsedChanged, this, &PromptEditorView::setLexiwellCollapsed);
    connect(analysisManager, &PromptAnalysisManager::isAnalyzingChanged, lexiwell,
            [this] { lexiwell->setLoading(analysisManager->isAnalyzing()); });
    lexiwell->setLoading(analysisManager->isAnalyzing());
    lexiwell->setPromptEmpty(!canCopy());
    lexiwell->setCollapsed(lexiwellCollapsed);
    showAnalysis(lastAnalysis, lastAnalysisError);
}

void PromptEditorView::setLexiwellCollapsed(bool collapsed) {
    lexiwellCollapsed = collapsed;
    if (lexiwell)
        lexiwell->setCollapsed(collapsed);
    panels->setLexiwellCollapsed(collapsed);
}

void PromptEditorView::analyzePrompt() {
    commitCompositions();
    const QString text = Text::trimmed(editorBody()).toString();
    if (text.isEmpty()) {
        Log::data.error(QStringLiteral("Cannot analyze empty prompt"));
        return;
    }
    MainQueue::async(this, [this, text] { runAnalysis(text); });
}

QCoro::Task<> PromptEditorView::runAnalysis(QString text) {
    const QPointer<PromptEditorView> self(this); // the sheet may be gone when the answer comes
    showAnalysis({}, {});
    Log::data.info(QStringLiteral("Starting prompt analysis"));
    std::optional<PromptAnalysis> analysis;
    std::optional<QString> failure;
    try {
        analysis = co_await analysisManager->analyze(text);
        Log::data.info(QStringLiteral("Prompt analysis completed successfully"));
    } catch (const std::exception& error) {
        Log::logDataError(QStringLiteral("analyzing prompt"), error);
        failure = localizedDescription(error);
    }
    if (self)
        self->showAnalysis(analysis, failure);
}

void PromptEditorView::showAnalysis(const std::optional<PromptAnalysis>& analysis,
                                    const std::optional<QString>& error) {
    lastAnalysis = analysis;
    lastAnalysisError = error;
    if (!lexiwell)
        return;
    lexiwell->setAnalysis(lastAnalysis);
    lexiwell->setErrorMessage(lastAnalysisError);
}

} // namespace Quillstacks
