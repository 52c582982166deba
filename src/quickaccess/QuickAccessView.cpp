#include "QuickAccessView.h"

#include "QuickAccessEmptyState.h"
#include "QuickAccessResultList.h"
#include "QuickAccessSearchRow.h"

#include "foundation/MainQueue.h"
#include "interface/Sheet.h"
#include "interface/TextField.h"
#include "library/ClipboardStep.h"
#include "library/model/Prompt.h"
#include "library/PromptSearch.h"
#include "variables/engine/VariableEngine.h"
#include "variables/FillInFlow.h"
#include "variables/VariablePreferences.h"

#include <QPointer>

#include <algorithm>
#include <utility>

namespace Quillstacks {

namespace {

constexpr double focusRecoveryDelay = 0.1;

QList<Prompt*> filtered(QList<Prompt*> prompts, bool pinned) {
    prompts.removeIf([pinned](const Prompt* prompt) { return prompt->isPinned() != pinned; });
    return prompts;
}

} // namespace

QuickAccessView::QuickAccessView(ModelContext& context, std::function<void()> dismiss, QWidget* parent)
    : QWidget(parent), modelContext(context), prompts(context), close(std::move(dismiss)) {
    setObjectName(QStringLiteral("QuickAccessView"));
    setAccessibleName(QStringLiteral("Quick access"));
    build();
    connectParts();
}

QuickAccessView::~QuickAccessView() = default;

QList<Prompt*> QuickAccessView::results() const {
    QList<Prompt*> found = promptsMatching(prompts.records(), search);
    sortPinnedFirst(found);
    return found;
}

QList<Prompt*> QuickAccessView::pinnedResults() const {
    return filtered(results(), true);
}

QList<Prompt*> QuickAccessView::otherResults() const {
    return filtered(results(), false);
}

QString QuickAccessView::emptyText() const {
    return search.isEmpty() ? QStringLiteral("Start typing to search") : QStringLiteral("No prompts found");
}

void QuickAccessView::prepare() {
    placeParts(); // before its rows are measured, which takes a width
    refresh();
    isPrepared = true;
}

void QuickAccessView::appear() {
    modelContext.processPendingChanges();
    hasAppeared = true;
    search.clear();
    searchBar->field()->setText(QString());
    selection = 0;
    if (isPrepared)
        placeParts();
    else
        prepare();
    isPrepared = false;
    list->scrollToTop();
    MainQueue::async(this, [this] { setSearchFocused(true); });
}

void QuickAccessView::refresh() {
    showResults(results());
}

void QuickAccessView::showResults(const QList<Prompt*>& shown) {
    empty->setText(emptyText());
    empty->setVisible(shown.isEmpty());
    list->setVisible(!shown.isEmpty());
    list->setResults(shown, selection);
    describeSelection();
}

void QuickAccessView::setSearchText(const QString& text) {
    if (text == search)
        return;
    search = text;
    if (searchBar->field()->text() != text)
        searchBar->field()->setText(text);
    // Once for all that a key causes: the library may be long.
    const QList<Prompt*> found = results();
    const bool moved = std::exchange(selection, 0) != 0;
    showResults(found);
    if (!moved)
        list->scrollToTop();
    else if (!found.isEmpty())
        list->follow(0);
}

void QuickAccessView::setSelectedIndex(int index, int count) {
    if (index == selection)
        return;
    selection = index;
    list->setSelectedIndex(index);
    describeSelection();
    if (index >= 0 && index < count)
        list->follow(index);
}

// The keyboard stays in the search field, so that is where assistive tools hear what the arrows have come to.
void QuickAccessView::describeSelection() {
    const QString title = list->titleAt(selection);
    if (title != searchBar->field()->accessibleDescription())
        searchBar->field()->setAccessibleDescription(title);
}

void QuickAccessView::moveUp() {
    if (const auto count = static_cast<int>(results().size()); count > 0)
        setSelectedIndex(std::max(selection - 1, 0), count);
}

void QuickAccessView::moveDown() {
    if (const auto count = static_cast<int>(results().size()); count > 0)
        setSelectedIndex(std::min(selection + 1, count - 1), count);
}

void QuickAccessView::chooseSelected() {
    const QList<Prompt*> found = results();
    if (selection >= 0 && selection < found.size())
        choosePrompt(found.at(selection));
}

void QuickAccessView::choose(int index) {
    const QList<Prompt*> found = results();
    if (index < 0 || index >= found.size())
        return;
    setSelectedIndex(index, static_cast<int>(found.size()));
    choosePrompt(found.at(index));
}

void QuickAccessView::escape() {
    setSearchText(QString());
    setSelectedIndex(0, 0);
    close();
}

void QuickAccessView::choosePrompt(Prompt* prompt) {
    QStringList variables;
    if (enableVariableSubstitutionPreference().value())
        variables = extractVariables(prompt->body());
    if (variables.isEmpty())
        copy(prompt->body(), prompt->title());
    else
        fillIn(prompt, variables);
}

void QuickAccessView::fillIn(Prompt* prompt, const QStringList& variables) {
    if (sheetShown)
        return;
    pending = prompt;
    sheetShown = true;
    FillInArea area;
    // A sheet that is fading out can outlive this view by a moment.
    area.rect = [view = QPointer<QuickAccessView>(this)] {
        return view ? view->cardRect().translated(view->mapTo(view->window(), QPoint())) : QRect();
    };
    area.radius = cardRadius();
    // The sheet gives the keyboard back to what had it, and that is never to be the toggle.
    searchBar->field()->setFocus(Qt::OtherFocusReason);
    presentFillIn(
        this, prompt->title(), prompt->body(), variables,
        // The title is kept: the prompt may be deleted in the main window while the sheet is open.
        [this, title = prompt->title()](const QString& filled) { copy(filled, title); },
        [this] {
            sheetShown = false;
            pending = nullptr;
        },
        std::move(area));
}

void QuickAccessView::copy(const QString& text, const QString& title) {
    ClipboardStep::copyPromptText(text, title);
    sheetShown = false;
    pending = nullptr;
    setSearchText(QString());
    setSelectedIndex(0, 0);
    close();
}

// The keyboard always comes back to the search field, whatever took it. Under a sheet only the flag does; the sheet
// gives the field the keyboard when it goes.
void QuickAccessView::setSearchFocused(bool focused) {
    if (focused == searchFocused)
        return;
    searchFocused = focused;
    if (!focused)
        MainQueue::after(focusRecoveryDelay, this, [this] { setSearchFocused(true); });
    else if (!Sheet::covers(this))
        searchBar->field()->setFocus(Qt::OtherFocusReason);
}

} // namespace Quillstacks
