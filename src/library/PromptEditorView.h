#pragma once

#include "analysis/answer/PromptAnalysis.h"
#include "interface/Sheet.h"
#include "library/model/LiveQuery.h"

#include <QCoroTask>

#include <QPointer>
#include <QSet>
#include <QWidget>

#include <functional>
#include <optional>

class QShortcut;

namespace Quillstacks {

class Button;
class Composition;
class LexiwellPanel;
class PromptAnalysisManager;
class PromptPanelColumn;
class PromptTextEditor;
class TagSelectorView;
class TextField;
class VariablesPreviewView;

/// The sheet in which a prompt is made or edited. Nothing reaches the store before savePrompt() or deletePrompt().
class PromptEditorView final : public QWidget {
    Q_OBJECT
public:
    /// Without an initial prompt it makes a new one, and hands it to `onSave`, before the store is saved.
    explicit PromptEditorView(ModelContext& modelContext, Prompt* initialPrompt = nullptr,
                              std::function<void(Prompt*)> onSave = {}, QWidget* parent = nullptr);

    // State
    /// As typed; only what is saved is trimmed.
    [[nodiscard]] const QString& title() const { return titleText; }
    [[nodiscard]] const QString& editorBody() const;
    [[nodiscard]] const QSet<Tag*>& selectedTags() const;
    /// None while a new prompt is made.
    [[nodiscard]] Prompt* editingPrompt() const { return prompt; }
    [[nodiscard]] bool isShowingDeleteAlert() const { return showingDeleteAlert; }
    [[nodiscard]] bool isShowingVersionHistory() const { return showingVersionHistory; }
    [[nodiscard]] bool showVariableSubstitution() const { return showingVariableSubstitution; }
    [[nodiscard]] bool isVariablesCollapsed() const;
    [[nodiscard]] bool isLexiwellCollapsed() const { return lexiwellCollapsed; }
    /// The last one in this sheet; never stored.
    [[nodiscard]] const std::optional<PromptAnalysis>& promptAnalysis() const { return lastAnalysis; }
    [[nodiscard]] const std::optional<QString>& analysisErrorMessage() const { return lastAnalysisError; }
    void setTitle(const QString& title);
    void setEditorBody(const QString& body);
    void setSelectedTags(const QSet<Tag*>& tags);
    void setVariablesCollapsed(bool collapsed);
    void setLexiwellCollapsed(bool collapsed);

    // Derived
    [[nodiscard]] bool canSave() const;
    [[nodiscard]] bool canCopy() const;
    /// Whether there are versions to be shown, so that there is a "History" button.
    [[nodiscard]] bool hasHistory() const;
    /// Whether something was typed, is still being composed, or was ticked that is not in the prompt; it would be lost
    /// if the editor went now.
    [[nodiscard]] bool holdsUnsavedTyping() const;

    // Actions
    /// Takes title, body and tags from the prompt; what was typed goes.
    void loadPrompt();
    void savePrompt();
    void copyPrompt();
    /// Opens the history on a sheet; a restore there replaces what was typed here. Does nothing without a history.
    void showVersionHistory();
    void askToDelete();
    void deletePrompt();
    void cancelDeletion();
    void cancel();
    /// Has the body rated as it stands, saved or not. The sheet may close meanwhile: then the answer is dropped.
    void analyzePrompt();

    /// How the sheet is to be presented, for a new prompt (nullptr) or an existing one.
    [[nodiscard]] static Sheet::Options sheetOptions(const Prompt* prompt);
    [[nodiscard]] QSize sizeHint() const override;

Q_SIGNALS:
    /// The sheet is to close.
    void closed();

private:
    void build();
    [[nodiscard]] QWidget* buildBodyColumn();
    [[nodiscard]] QLayout* buildTitleRow();
    [[nodiscard]] QWidget* buildPanels();
    [[nodiscard]] QLayout* buildFooter();
    void connectParts();
    void refreshControls();
    void refreshHistoryButton();
    /// Takes what an input method still composes into title and body.
    void commitCompositions();
    [[nodiscard]] QList<Tag*> attachedTags() const;
    /// False when the old text could not be kept as a version: then nothing is written.
    bool saveExisting(const QString& trimmedTitle, const QString& trimmedBody);
    void saveNew(const QString& trimmedTitle, const QString& trimmedBody);
    void saveContext(const QString& operation, const QString& success);
    void putOnClipboard(const QString& text);
    /// Has the analysis panel there or not, as the preference says.
    void placeLexiwell();
    QCoro::Task<> runAnalysis(QString text);
    void showAnalysis(const std::optional<PromptAnalysis>& analysis, const std::optional<QString>& error);

    ModelContext& modelContext;
    Prompt* initialPrompt;
    std::function<void(Prompt*)> onSave;
    TagQuery allTags;
    QString titleText;
    Prompt* prompt = nullptr;
    bool showingDeleteAlert = false;
    bool showingVersionHistory = false;
    bool showingVariableSubstitution = false;
    std::optional<PromptAnalysis> lastAnalysis;
    std::optional<QString> lastAnalysisError;
    bool lexiwellCollapsed = false;
    PromptAnalysisManager* analysisManager = nullptr;

    TextField* titleField = nullptr;
    Composition* titleComposition = nullptr;
    Button* copyButton = nullptr;
    Button* historyButton = nullptr;
    TagSelectorView* tagSelector = nullptr;
    PromptTextEditor* bodyEditor = nullptr;
    VariablesPreviewView* variablesPreview = nullptr;
    LexiwellPanel* lexiwell = nullptr; ///< none while it is switched off
    PromptPanelColumn* panels = nullptr;
    Button* deleteButton = nullptr;
    Button* cancelButton = nullptr;
    Button* saveButton = nullptr;
    QShortcut* saveKey = nullptr;
    QPointer<Sheet> deleteAlert;
};

} // namespace Quillstacks
