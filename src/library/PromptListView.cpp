#include "library/PromptListView.h"

#include "DeletePromptAlert.h"
#include "foundation/Text.h"
#include "interface/LazyList.h"
#include "interface/Menu.h"
#include "interface/Sheet.h"
#include "interface/Theme.h"
#include "interface/ToastManager.h"
#include "interface/ToastModifier.h"
#include "library/ClipboardStep.h"
#include "library/model/StoreError.h"
#include "library/PromptEditorView.h"
#include "library/PromptSearch.h"
#include "PromptEmptyStateView.h"
#include "PromptListHeader.h"
#include "PromptRow.h"

#include <QGraphicsOpacityEffect>
#include <QShortcut>
#include <QVBoxLayout>

#include <algorithm>

namespace Quillstacks {
namespace {

constexpr double toastSeconds = 2.0;

// A change stays in the context when it can't be saved, and goes with the next save.
void saveIgnoringFailure(ModelContext& context) {
    try {
        context.save();
    } catch (const StoreError&) {
    }
}

// The effect lives only while the opacity is between its ends: it costs an off-screen copy at each repaint.
void setOpacity(QWidget& widget, qreal opacity) {
    if (opacity > 0 && opacity < 1) {
        if (!widget.graphicsEffect())
            widget.setGraphicsEffect(new QGraphicsOpacityEffect(&widget));
        static_cast<QGraphicsOpacityEffect*>(widget.graphicsEffect())->setOpacity(opacity);
    } else {
        widget.setGraphicsEffect(nullptr);
    }
    widget.setVisible(opacity > 0);
}

QString countTextOf(qsizetype count) {
    return QString::number(count) + (count == 1 ? QStringLiteral(" prompt") : QStringLiteral(" prompts"));
}

} // namespace

PromptListView::PromptListView(ModelContext& context, QWidget* parent)
    : QWidget(parent), modelContext(context), prompts(context), emptyOpacity(this) {
    setObjectName(QStringLiteral("PromptListView"));
    build();
    connectParts();
    refresh();
}

void PromptListView::build() {
    header = new PromptListHeader(this);
    list = new LazyList(QStringLiteral("Prompts"), this);
    list->setPadding(QMargins(16, 0, 16, 16));
    list->setGap(2);
    list->setBottomFade(ColorRole::window);
    LazyList::Source source;
    source.count = [this] { return static_cast<int>(shown.size()); };
    source.height = [this](int index, int width) { return PromptRow::heightOf(*shown[index], width); };
    source.make = [](int, QWidget* rowParent) -> QWidget* { return new PromptRow(rowParent); };
    source.bind = [this](QWidget* row, int index) { bindRow(row, index); };
    source.hover = [](QWidget* row, bool hovered) { static_cast<PromptRow*>(row)->setHovered(hovered); };
    source.isSelected = [this](int index) { return isSelected(*shown[index]); };
    source.key = [this](int index) { return shown[index]; };
    list->setSource(std::move(source));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(header);
    layout->addWidget(list, 1);
    emptyState = new PromptEmptyStateView(this);
    emptyState->onCreate = [this] { newPrompt(); };
    emptyState->hide();
    setFocusProxy(list);
    new ToastModifier(this);
}

void PromptListView::connectParts() {
    connect(&prompts, &LiveQueryBase::changed, this, [this] { refresh(true); });
    connect(&Theme::shared(), &Theme::changed, this, [this] { refresh(); });
    connect(header, &PromptListHeader::newPromptRequested, this, &PromptListView::newPrompt);
    connect(header, &PromptListHeader::deleteRequested, this, &PromptListView::askToDeleteSelection);
    connect(list, &LazyList::clicked, this, [this](int index) { select(shown[index]); });
    connect(list, &LazyList::doubleClicked, this, [this](int index) { edit(shown[index]); });
    connect(list, &LazyList::contextMenuRequested, this, [this](int index, const QPoint& global) {
        if (index >= 0)
            makeContextMenu(shown[index])->popup(global);
    });
    auto* create = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_N), this);
    connect(create, &QShortcut::activated, this, &PromptListView::newPrompt);
    connect(&emptyOpacity, &Transition::valueChanged, this, [this](qreal value) { setOpacity(*emptyState, value); });
}

void PromptListView::bindRow(QWidget* widget, int index) {
    auto* row = static_cast<PromptRow*>(widget);
    Prompt* prompt = shown[index];
    row->onEdit = [this, prompt] { edit(prompt); };
    row->onCopy = [this, prompt] { copy(prompt); };
    row->onTogglePin = [this, prompt] { togglePin(prompt); };
    row->setPrompt(prompt, isSelected(*prompt));
}

bool PromptListView::isSelected(const Prompt& prompt) const {
    return selected && selected->id() == prompt.id();
}

void PromptListView::setSearchText(const QString& text) {
    search = text;
    refresh();
    list->scrollToTop(); // the best are at the top
}

void PromptListView::setSelectedTagId(const std::optional<Uuid>& id) {
    tagId = id;
    refresh();
}

QList<Prompt*> PromptListView::filteredPrompts() const {
    QList<Prompt*> filtered = promptsMatching(promptsWithTag(prompts.records(), tagId), search);
    sortPinnedFirst(filtered);
    return filtered;
}

QString PromptListView::countText() const {
    return countTextFor(filteredPrompts());
}

QString PromptListView::countTextFor(const QList<Prompt*>& visible) const {
    const bool isFiltering = tagId.value_or(allPromptsId) != allPromptsId || !Text::isBlank(search);
    return isFiltering && !visible.isEmpty() ? countTextOf(visible.size()) : QString();
}

void PromptListView::refresh(bool followsRows) {
    shown = filteredPrompts();
    followsRows ? list->followChanges() : list->reload();
    header->setCount(countTextFor(shown));
    showSelection();
    showEmptyState(shown.isEmpty());
}

void PromptListView::showSelection() {
    header->setDeleteEnabled(livingSelection() != nullptr);
    list->rebind();
}

Prompt* PromptListView::livingSelection() const {
    return selected && !selected->isDeleted() ? selected : nullptr;
}

void PromptListView::showEmptyState(bool empty) {
    // While it fades out it is a picture only.
    emptyState->setAttribute(Qt::WA_TransparentForMouseEvents, !empty);
    if (!empty && emptyState->isAncestorOf(focusWidget()))
        list->setFocus(Qt::OtherFocusReason);
    emptyOpacity.to(empty ? 1 : 0);
}

void PromptListView::select(Prompt* prompt) {
    selected = prompt;
    showSelection();
}

void PromptListView::newPrompt() {
    if (Sheet::covers(this))
        return;
    select(nullptr);
    presentEditor();
}

void PromptListView::edit(Prompt* prompt) {
    if (prompt->isDeleted() || Sheet::covers(this))
        return;
    select(prompt);
    presentEditor();
}

void PromptListView::presentEditor() {
    if (presentingEditor)
        return;
    presentingEditor = true;
    auto editor = std::make_unique<PromptEditorView>(modelContext, livingSelection());
    PromptEditorView* view = editor.get();
    Sheet* sheet = Sheet::present(this, std::move(editor), PromptEditorView::sheetOptions(view->editingPrompt()));
    connect(view, &PromptEditorView::closed, sheet, &Sheet::dismiss);
    connect(sheet, &Sheet::closed, this, &PromptListView::editorClosed);
}

void PromptListView::editorClosed() {
    presentingEditor = false;
    modelContext.processPendingChanges();
    refreshes = !refreshes;
    refresh();
    // Where a button of a row had the keyboard, the row may be gone or another's by now.
    const QWidget* focus = window()->focusWidget();
    if (!focus || list->isAncestorOf(focus))
        list->setFocus(Qt::OtherFocusReason);
}

void PromptListView::moveSelection(int offset) {
    const QList<Prompt*> visible = filteredPrompts();
    if (visible.isEmpty())
        return;
    const qsizetype at = selected ? visible.indexOf(selected) : -1;
    const qsizetype next = at < 0 ? 0 : std::clamp<qsizetype>(at + offset, 0, visible.size() - 1);
    select(visible[next]);
    if (const qsizetype row = shown.indexOf(selected); row >= 0)
        list->ensureVisible(static_cast<int>(row));
}

void PromptListView::askToDelete(Prompt* prompt) {
    if (showingDeleteAlert || prompt->isDeleted() || Sheet::covers(this))
        return;
    deletionCandidate = prompt;
    showingDeleteAlert = true;
    deleteAlert = showDeletePromptAlert(
        this, [this] { confirmDeletion(); }, [this] { cancelDeletion(); });
}

void PromptListView::askToDeleteSelection() {
    if (Prompt* prompt = livingSelection())
        askToDelete(prompt);
}

void PromptListView::confirmDeletion() {
    Prompt* prompt = std::exchange(deletionCandidate, nullptr);
    showingDeleteAlert = false;
    if (prompt) {
        const bool wasSelected = selected && selected->id() == prompt->id();
        modelContext.remove(prompt);
        saveIgnoringFailure(modelContext);
        select(wasSelected ? nullptr : selected);
    }
    if (deleteAlert)
        deleteAlert->dismiss();
}

void PromptListView::cancelDeletion() {
    deletionCandidate = nullptr;
    showingDeleteAlert = false;
    if (deleteAlert)
        deleteAlert->dismiss();
}

void PromptListView::copy(Prompt* prompt) {
    if (!prompt->isDeleted())
        ClipboardStep::copyBody(prompt->body());
}

void PromptListView::togglePin(Prompt* prompt) {
    if (prompt->isDeleted())
        return;
    prompt->togglePin();
    saveIgnoringFailure(modelContext);
    ToastManager::shared().show(prompt->isPinned() ? QStringLiteral("Pinned") : QStringLiteral("Unpinned"),
                                toastSeconds);
}

void PromptListView::addWindowItem(QWidget* item) {
    header->addWindowItem(item);
}

Menu* PromptListView::makeContextMenu(Prompt* prompt) {
    auto* menu = new Menu(this);
    menu->add(QStringLiteral("pencil"), QStringLiteral("Edit"), [this, prompt] { edit(prompt); });
    menu->add(QString(), prompt->isPinned() ? QStringLiteral("Unpin from Top") : QStringLiteral("Pin to Top"),
              [this, prompt] { togglePin(prompt); });
    menu->addDestructive(QStringLiteral("trash"), QStringLiteral("Delete"), [this, prompt] { askToDelete(prompt); });
    return menu;
}

void PromptListView::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    emptyState->setGeometry(rect().adjusted(0, header->height(), 0, 0));
}

} // namespace Quillstacks
