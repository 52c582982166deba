// The sheets and the alert that the prompt editor opens, and what follows from them.
#include "DeletePromptAlert.h"
#include "library/ClipboardStep.h"
#include "library/PromptEditorView.h"
#include "library/versions/VersionHistoryView.h"
#include "variables/engine/VariableEngine.h"
#include "variables/FillInFlow.h"
#include "variables/VariablePreferences.h"

namespace Quillstacks {

void PromptEditorView::copyPrompt() {
    commitCompositions();
    const QString body = editorBody();
    const QStringList variables = extractVariables(body);
    if (variables.isEmpty() || !enableVariableSubstitutionPreference().value()) {
        putOnClipboard(body);
        return;
    }
    showingVariableSubstitution = true;
    presentFillIn(
        this, titleText, body, variables, [this](const QString& filled) { putOnClipboard(filled); },
        [this] { showingVariableSubstitution = false; });
}

void PromptEditorView::putOnClipboard(const QString& text) {
    ClipboardStep::copyPromptText(text, titleText);
    showingVariableSubstitution = false;
}

void PromptEditorView::askToDelete() {
    if (showingDeleteAlert)
        return;
    showingDeleteAlert = true;
    deleteAlert = showDeletePromptAlert(
        this,
        [this] {
            showingDeleteAlert = false;
            deletePrompt();
        },
        [this] { cancelDeletion(); });
}

void PromptEditorView::cancelDeletion() {
    showingDeleteAlert = false;
    if (deleteAlert)
        deleteAlert->dismiss();
}

void PromptEditorView::showVersionHistory() {
    if (showingVersionHistory || !hasHistory())
        return;
    showingVersionHistory = true;
    auto history = std::make_unique<VersionHistoryView>(modelContext, *prompt, [this] { loadPrompt(); });
    const VersionHistoryView* view = history.get();
    Sheet* sheet = Sheet::present(this, std::move(history), VersionHistoryView::sheetOptions());
    connect(view, &VersionHistoryView::closed, sheet, &Sheet::dismiss);
    connect(sheet, &Sheet::closed, this, [this] {
        showingVersionHistory = false;
        modelContext.processPendingChanges();
    });
}

} // namespace Quillstacks
