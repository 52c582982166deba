#include "library/tags/SidebarTagsSection.h"

#include "foundation/MainQueue.h"
#include "interface/Alert.h"
#include "interface/Label.h"
#include "interface/Menu.h"
#include "interface/Sheet.h"
#include "library/model/StoreError.h"
#include "SidebarRow.h"
#include "TagRow.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QVBoxLayout>

#include <algorithm>

namespace Quillstacks {
namespace {

constexpr int sidePadding = 12;
constexpr double deletionDelay = 0.1; ///< seconds; the alert is gone before the rows change

QLayout* heading(const QString& title, QWidget* parent) {
    auto* label = new Label(title, TextStyle::caption, ColorRole::text3, parent);
    label->setTextStyle(TextStyle::caption, QFont::DemiBold);
    auto* row = new QHBoxLayout;
    row->setContentsMargins(8, 20, 8, 6);
    row->addWidget(label);
    return row;
}

} // namespace

SidebarTagsSection::SidebarTagsSection(ModelContext& context, const Uuid& idOfAllPrompts, QWidget* parent)
    : QWidget(parent), modelContext(context), tags(context), allPromptsId(idOfAllPrompts) {
    setObjectName(QStringLiteral("SidebarTagsSection"));
    build();
    connect(&tags, &LiveQueryBase::changed, this, &SidebarTagsSection::refresh);
    refresh();
}

void SidebarTagsSection::build() {
    allPrompts =
        new SidebarRow(QStringLiteral("tray.fill"), QStringLiteral("All Prompts"), SidebarRow::Kind::selectable, this);
    connect(allPrompts, &QAbstractButton::clicked, this, [this] { select(allPromptsId); });
    connect(allPrompts, &SidebarRow::arrowPressed, this, &SidebarTagsSection::moveSelection);
    newTag = new SidebarRow(QStringLiteral("plus"), QStringLiteral("New Tag"), SidebarRow::Kind::action, this);
    connect(newTag, &QAbstractButton::clicked, this, [this] {
        if (onCreate)
            onCreate();
    });
    layoutOfTags = new QVBoxLayout;
    layoutOfTags->setSpacing(0);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(sidePadding, 0, sidePadding, sidePadding);
    column->setSpacing(0);
    column->addLayout(heading(QStringLiteral("Filters"), this));
    column->addWidget(allPrompts);
    column->addLayout(heading(QStringLiteral("Tags"), this));
    column->addLayout(layoutOfTags);
    column->addWidget(newTag);
    column->addStretch();
}

void SidebarTagsSection::refresh() {
    std::vector<TagRow*> next;
    for (Tag* tag : tags.records())
        next.push_back(takeRow(tag));
    std::swap(rows, next);
    bool lostFocus = false;
    for (TagRow* gone : next) {
        lostFocus |= gone && (gone->hasFocus() || gone->isAncestorOf(window()->focusWidget()));
        delete gone;
    }
    for (TagRow* row : rows)
        row->refresh();
    orderRows();
    orderTabs();
    setSelectedTagId(tagId);
    // Gone by another way than its own deletion here, such as a restore: the list would be empty, and nobody knew why.
    if (tagId && selectedRow() == allPrompts && tagId != allPromptsId)
        select(allPromptsId);
    if (lostFocus)
        selectedRow()->setFocus(Qt::OtherFocusReason);
}

/// The row that stands for the tag already, or a new one. It is taken out of the rows.
TagRow* SidebarTagsSection::takeRow(Tag* tag) {
    const auto kept = std::ranges::find_if(rows, [&](const TagRow* row) { return row && row->tag() == tag; });
    return kept == rows.end() ? makeRow(tag) : std::exchange(*kept, nullptr);
}

TagRow* SidebarTagsSection::makeRow(Tag* tag) {
    auto* row = new TagRow(tag, this);
    row->onEdit = [this, tag] {
        if (onEdit)
            onEdit(tag);
    };
    connect(row, &QAbstractButton::clicked, this, [this, tag] { select(tag->id()); });
    connect(row, &SidebarRow::arrowPressed, this, &SidebarTagsSection::moveSelection);
    return row;
}

void SidebarTagsSection::orderRows() {
    int kept = 0;
    const auto isInPlace = [this](int at) {
        const QLayoutItem* item = layoutOfTags->itemAt(at);
        return item && at < static_cast<int>(rows.size()) && item->widget() == rows[static_cast<std::size_t>(at)];
    };
    while (isInPlace(kept))
        ++kept;
    while (layoutOfTags->count() > kept)
        delete layoutOfTags->takeAt(layoutOfTags->count() - 1);
    for (auto row = rows.begin() + kept; row != rows.end(); ++row) {
        layoutOfTags->addWidget(*row);
        (*row)->show();
    }
}

void SidebarTagsSection::orderTabs() {
    // Only what the Tab key stops at can be put in order.
    allPrompts->setTabStop(true);
    QWidget* before = allPrompts;
    for (TagRow* row : rows) {
        row->setTabStop(true);
        setTabOrder(before, row);
        setTabOrder(row, row->lastTabStop());
        before = row->lastTabStop();
    }
    setTabOrder(before, newTag);
}

void SidebarTagsSection::setSelectedTagId(const std::optional<Uuid>& id) {
    tagId = id;
    allPrompts->setChecked(tagId == allPromptsId);
    for (TagRow* row : rows)
        row->setChecked(tagId == row->tag()->id());
    // One stop for Tab; the arrows move within.
    const SidebarRow* stop = selectedRow();
    allPrompts->setTabStop(stop == allPrompts);
    for (TagRow* row : rows)
        row->setTabStop(stop == row);
}

/// The row of all prompts where none is.
SidebarRow* SidebarTagsSection::selectedRow() const {
    const auto found = std::ranges::find_if(rows, [](const TagRow* row) { return row->isChecked(); });
    return found == rows.end() ? allPrompts : *found;
}

void SidebarTagsSection::select(const Uuid& id) {
    setSelectedTagId(id);
    Q_EMIT selectedTagIdChanged(tagId);
}

void SidebarTagsSection::moveSelection(int offset) {
    const auto found = std::ranges::find(rows, selectedRow());
    const qsizetype at = found == rows.end() ? 0 : found - rows.begin() + 1;
    const auto to = std::clamp<qsizetype>(at + offset, 0, static_cast<qsizetype>(rows.size()));
    select(to == 0 ? allPromptsId : rows[static_cast<std::size_t>(to - 1)]->tag()->id());
    SidebarRow* row = selectedRow();
    row->setFocus(Qt::TabFocusReason);
    Q_EMIT revealed(row);
}

void SidebarTagsSection::askToDelete(Tag* tag) {
    if (showingDeleteAlert || tag->isDeleted() || Sheet::covers(this))
        return;
    deletionCandidate = tag;
    showingDeleteAlert = true;
    deleteAlert = Alert::show(
        this,
        {.title = QStringLiteral("Delete Tag?"),
         .message = QString(),
         .confirmTitle = QStringLiteral("Delete"),
         .destructive = true},
        [this] { confirmDeletion(); }, [this] { cancelDeletion(); });
}

void SidebarTagsSection::confirmDeletion() {
    Tag* tag = deletionCandidate;
    if (!tag)
        return;
    cancelDeletion();
    // On the context, not on this: what was confirmed happens also when the window closes meanwhile.
    MainQueue::after(deletionDelay, &modelContext,
                     [context = &modelContext, tag, section = QPointer<SidebarTagsSection>(this)] {
                         if (section && section->tagId == tag->id())
                             section->select(section->allPromptsId);
                         context->remove(tag);
                         try {
                             context->save();
                         } catch (const StoreError&) {
                             // It goes with the next save.
                         }
                     });
}

void SidebarTagsSection::cancelDeletion() {
    deletionCandidate = nullptr;
    showingDeleteAlert = false;
    if (deleteAlert)
        deleteAlert->dismiss();
}

Menu* SidebarTagsSection::makeContextMenu(Tag* tag) {
    auto* menu = new Menu(this);
    menu->add(QStringLiteral("pencil"), QStringLiteral("Edit"), [this, tag] {
        if (onEdit)
            onEdit(tag);
    });
    menu->add(QStringLiteral("trash"), QStringLiteral("Delete"), [this, tag] { askToDelete(tag); });
    return menu;
}

TagRow* SidebarTagsSection::rowAround(const QWidget* widget) const {
    const auto found =
        std::ranges::find_if(rows, [&](const TagRow* row) { return row == widget || row->isAncestorOf(widget); });
    return found == rows.end() ? nullptr : *found;
}

void SidebarTagsSection::showMenu(const TagRow& row, const QPoint& global) {
    makeContextMenu(row.tag())->popup(global);
}

void SidebarTagsSection::contextMenuEvent(QContextMenuEvent* event) {
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    const TagRow* row = rowAround(byKey ? window()->focusWidget() : childAt(event->pos()));
    if (row)
        showMenu(*row, byKey ? row->mapToGlobal(row->rect().center()) : event->globalPos());
}

void SidebarTagsSection::keyPressEvent(QKeyEvent* event) {
    const TagRow* row = rowAround(window()->focusWidget());
    if (row && event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier)
        showMenu(*row, row->mapToGlobal(row->rect().center()));
    else
        QWidget::keyPressEvent(event);
}

void SidebarTagsSection::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (!tagId)
        select(allPromptsId);
}

} // namespace Quillstacks
