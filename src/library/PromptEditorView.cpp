#include "library/PromptEditorView.h"

#include "foundation/Clock.h"
#include "foundation/Log.h"
#include "foundation/Text.h"
#include "interface/Composition.h"
#include "interface/TextField.h"
#include "library/model/StoreError.h"
#include "library/tags/TagSelectorView.h"
#include "library/versions/PromptVersionManager.h"
#include "library/versions/VersionPreferences.h"
#include "PromptPanelColumn.h"
#include "PromptTextEditor.h"
#include "variables/VariablesPreviewView.h"

#include <QSignalBlocker>

namespace Quillstacks {
namespace {

QString quoted(const QString& text) {
    return QLatin1Char('\'') + text + QLatin1Char('\'');
}

} // namespace

PromptEditorView::PromptEditorView(ModelContext& context, Prompt* initial, std::function<void(Prompt*)> saved,
                                   QWidget* parent)
    : QWidget(parent), modelContext(context), initialPrompt(initial), onSave(std::move(saved)), allTags(context) {
    setObjectName(QStringLiteral("PromptEditorView"));
    build();
    connectParts();
    if (initialPrompt)
        loadPrompt();
    refreshControls();
    refreshHistoryButton();
}

const QString& PromptEditorView::editorBody() const {
    return bodyEditor->text();
}

void PromptEditorView::setTitle(const QString& title) {
    // Kept beside the field, so that a title that was never typed here comes back exactly as it is stored.
    titleText = title;
    const QSignalBlocker blocker(titleField);
    titleField->setText(title);
    titleField->setCursorPosition(0);
    refreshControls();
}

void PromptEditorView::setEditorBody(const QString& body) {
    bodyEditor->setText(body);
    refreshControls();
}

const QSet<Tag*>& PromptEditorView::selectedTags() const {
    return tagSelector->selection();
}

void PromptEditorView::setSelectedTags(const QSet<Tag*>& tags) {
    tagSelector->setSelection(tags);
}

bool PromptEditorView::isVariablesCollapsed() const {
    return variablesPreview->isCollapsed();
}

void PromptEditorView::setVariablesCollapsed(bool collapsed) {
    variablesPreview->setCollapsed(collapsed);
    panels->setVariablesCollapsed(collapsed);
}

bool PromptEditorView::canSave() const {
    return !Text::isBlank(titleText) && !Text::isBlank(editorBody());
}

bool PromptEditorView::canCopy() const {
    return !Text::isBlank(editorBody());
}

bool PromptEditorView::hasHistory() const {
    try {
        return prompt && !prompt->isDeleted() && prompt->hasVersions();
    } catch (const StoreError&) {
        return false; // what can't be read can't be shown either
    }
}

bool PromptEditorView::holdsUnsavedTyping() const {
    const QList<Tag*> ticked = attachedTags();
    const QList<Tag*> stored = prompt ? prompt->tags() : QList<Tag*>();
    return titleComposition->isActive() || bodyEditor->isComposing() ||
           titleText != (prompt ? prompt->title() : QString()) ||
           editorBody() != (prompt ? prompt->body() : QString()) ||
           QSet<Tag*>(ticked.begin(), ticked.end()) != QSet<Tag*>(stored.begin(), stored.end());
}

void PromptEditorView::loadPrompt() {
    Prompt* loaded = initialPrompt ? initialPrompt : prompt;
    if (!loaded)
        return;
    setTitle(loaded->title());
    setEditorBody(loaded->body());
    setSelectedTags(QSet<Tag*>(loaded->tags().begin(), loaded->tags().end()));
    prompt = loaded;
    refreshControls();
    refreshHistoryButton();
}

void PromptEditorView::commitCompositions() {
    titleComposition->commit();
    bodyEditor->commitComposition();
}

void PromptEditorView::savePrompt() {
    commitCompositions();
    const QString trimmedTitle = Text::trimmed(titleText).toString();
    const QString body = editorBody();
    const QString trimmedBody = Text::trimmed(body).toString();
    if (trimmedTitle.isEmpty() || trimmedBody.isEmpty())
        return;
    // A prompt that is gone can't take the text any more: it is kept as a new one.
    if (!prompt || prompt->isDeleted())
        saveNew(trimmedTitle, trimmedBody);
    else if (!saveExisting(trimmedTitle, trimmedBody))
        return;
    saveContext(QStringLiteral("saving prompt"), QStringLiteral("Prompt saved successfully"));
    Q_EMIT closed();
}

bool PromptEditorView::saveExisting(const QString& trimmedTitle, const QString& trimmedBody) {
    if (trimmedTitle != prompt->title() || trimmedBody != prompt->body()) {
        try {
            PromptVersionManager::createVersion(*prompt, modelContext, versionHistoryLimitPreference().value());
        } catch (const std::exception& error) {
            // Writing now would lose the old text, closing now the new one: so neither.
            Log::logDataError(QStringLiteral("saving prompt"), error);
            return false;
        }
    }
    prompt->setTitle(trimmedTitle);
    prompt->setBody(trimmedBody);
    prompt->setUpdatedAt(Clock::now());
    prompt->setTags(attachedTags());
    prompt->setUpdatedAt(Clock::now());
    return true;
}

void PromptEditorView::saveNew(const QString& trimmedTitle, const QString& trimmedBody) {
    Prompt* created = modelContext.insert(std::make_unique<Prompt>(trimmedTitle, trimmedBody, attachedTags()));
    Log::data.info(QStringLiteral("New prompt created: ") + quoted(trimmedTitle));
    if (onSave)
        onSave(created);
}

QList<Tag*> PromptEditorView::attachedTags() const {
    QList<Tag*> attached;
    for (Tag* tag : allTags.records())
        if (selectedTags().contains(tag))
            attached += tag;
    return attached;
}

void PromptEditorView::saveContext(const QString& operation, const QString& success) {
    try {
        modelContext.save();
        Log::data.info(success);
    } catch (const std::exception& error) {
        Log::logDataError(operation, error);
    }
}

void PromptEditorView::deletePrompt() {
    if (!prompt)
        return;
    Log::data.info(QStringLiteral("Deleting prompt: ") + quoted(prompt->title()));
    modelContext.remove(prompt);
    saveContext(QStringLiteral("deleting prompt"), QStringLiteral("Prompt deleted successfully"));
    Q_EMIT closed();
}

void PromptEditorView::cancel() {
    Q_EMIT closed();
}

} // namespace Quillstacks
