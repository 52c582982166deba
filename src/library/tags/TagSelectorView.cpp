#include "library/tags/TagSelectorView.h"

#include "interface/Button.h"
#include "interface/Label.h"
#include "interface/Sheet.h"
#include "library/tags/TagEditorView.h"
#include "TagSelector.h"

#include <QVBoxLayout>

namespace Quillstacks {

TagSelectorView::TagSelectorView(ModelContext& context, TagQuery& tags, QWidget* parent)
    : QWidget(parent), modelContext(context), allTags(tags) {
    setObjectName(QStringLiteral("TagSelectorView"));
    build();
    connect(&allTags, &LiveQueryBase::changed, this, &TagSelectorView::refresh);
    connect(createButton, &QAbstractButton::clicked, this, &TagSelectorView::createTag);
    connect(selector, &TagSelector::tagClicked, this, &TagSelectorView::toggle);
    refresh();
}

void TagSelectorView::build() {
    createButton = new Button(QStringLiteral("Create Tag"), Button::Kind::bordered, this);
    createButton->setSize(Button::Size::tall);
    createButton->setSymbol(QStringLiteral("plus"));
    createButton->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    selector = new TagSelector(this);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(8);
    column->addWidget(new Label(QStringLiteral("Tags"), TextStyle::headline, ColorRole::text, this));
    column->addWidget(createButton);
    column->addWidget(selector);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void TagSelectorView::refresh() {
    const QList<Tag*>& tags = allTags.records();
    // What is about to be hidden must not take the keyboard along.
    const bool hadFocus = isAncestorOf(window()->focusWidget());
    createButton->setVisible(tags.isEmpty());
    selector->setVisible(!tags.isEmpty());
    selector->setTags(tags);
    selector->setSelection(ticked);
    if (hadFocus && !isAncestorOf(window()->focusWidget()))
        (tags.isEmpty() ? static_cast<QWidget*>(createButton) : selector)->setFocus(Qt::OtherFocusReason);
}

void TagSelectorView::setSelection(const QSet<Tag*>& tags) {
    ticked = tags;
    selector->setSelection(ticked);
}

void TagSelectorView::toggle(Tag* tag) {
    if (!ticked.remove(tag))
        ticked.insert(tag);
    selector->setSelection(ticked);
    Q_EMIT selectionChanged(ticked);
}

void TagSelectorView::createTag() {
    if (presentingTagEditor || Sheet::covers(this))
        return;
    presentingTagEditor = true;
    const bool hadFocus = createButton->hasFocus();
    Sheet* sheet = TagEditorView::present(this, modelContext, editedTag, [this](Tag* created) {
        ticked.insert(created);
        refresh();
        Q_EMIT selectionChanged(ticked);
    });
    connect(sheet, &Sheet::closed, this, [this, hadFocus] {
        presentingTagEditor = false;
        // The button that had the keyboard is gone once there is a tag.
        if (hadFocus && !createButton->isVisibleTo(this))
            selector->setFocus(Qt::TabFocusReason);
    });
}

} // namespace Quillstacks
