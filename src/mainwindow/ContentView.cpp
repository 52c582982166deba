#include "mainwindow/ContentView.h"

#include "interface/IconButton.h"
#include "interface/Sheet.h"
#include "interface/Theme.h"
#include "interface/Typing.h"
#include "library/model/ModelContext.h"
#include "library/PromptListView.h"
#include "library/tags/TagEditorView.h"
#include "mainwindow/settings/SettingsView.h"
#include "mainwindow/SidebarView.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QShortcut>

namespace Quillstacks {

ContentView::ContentView(ModelContext& context, QWidget* parent)
    : QWidget(parent), modelContext(context), sidebar(new SidebarView(context, this)),
      list(new PromptListView(context, this)) {
    setObjectName(QStringLiteral("ContentView"));
    auto* columns = new QHBoxLayout(this);
    columns->setContentsMargins(0, 0, 0, 0);
    columns->setSpacing(0);
    columns->addWidget(sidebar);
    columns->addWidget(list, 1);
    connectSidebar();
    buildToolbar();
    // The list's keys work from the start; the search field is a click or a Tab away.
    list->setFocus(Qt::OtherFocusReason);
}

void ContentView::connectSidebar() {
    connect(sidebar, &SidebarView::searchTextChanged, this, &ContentView::setSearchText);
    connect(sidebar, &SidebarView::selectedTagIdChanged, this, &ContentView::setSelectedTagId);
    sidebar->onCreateTag = [this] { onCreateTag(); };
    sidebar->onEditTag = [this](Tag* tag) { onEditTag(tag); };
}

void ContentView::buildToolbar() {
    auto* settings = new IconButton(QStringLiteral("gear"), QStringLiteral("Settings"));
    settings->setSymbolSize(19);
    connect(settings, &QAbstractButton::clicked, this, &ContentView::presentSettings);
    list->addWindowItem(settings);
    auto* settingsKey = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_Comma), this);
    connect(settingsKey, &QShortcut::activated, this, &ContentView::presentSettings);
}

void ContentView::setSearchText(const QString& text) {
    if (text == search)
        return;
    search = text;
    sidebar->setSearchText(text);
    list->setSearchText(text);
}

void ContentView::setSelectedTagId(const std::optional<Uuid>& id) {
    tagId = id;
    sidebar->setSelectedTagId(id);
    list->setSelectedTagId(id);
}

void ContentView::onCreateTag() {
    presentTagEditor(nullptr);
}

void ContentView::onEditTag(Tag* tag) {
    if (!tag->isDeleted())
        presentTagEditor(tag);
}

void ContentView::presentTagEditor(Tag* tag) {
    if (presentingTagEditor || Sheet::covers(this))
        return;
    editedTag = tag;
    presentingTagEditor = true;
    Sheet* sheet = TagEditorView::present(this, modelContext, editedTag);
    connect(sheet, &Sheet::closed, this, [this] {
        presentingTagEditor = false;
        modelContext.processPendingChanges();
    });
}

void ContentView::presentSettings() {
    if (presentingSettings || Sheet::covers(this))
        return;
    presentingSettings = true;
    auto settings = std::make_unique<SettingsView>(modelContext);
    SettingsView* view = settings.get();
    Sheet* sheet = Sheet::present(this, std::move(settings), SettingsView::sheetOptions());
    connect(view, &SettingsView::closed, sheet, &Sheet::dismiss);
    connect(sheet, &Sheet::closed, this, [this] { presentingSettings = false; });
}

void ContentView::keyPressEvent(QKeyEvent* event) {
    const bool isPlain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    if (event->key() == Qt::Key_T && isPlain && !event->isAutoRepeat() && !isTyping())
        onCreateTag();
    else
        QWidget::keyPressEvent(event);
}

void ContentView::paintEvent(QPaintEvent*) {
    QPainter(this).fillRect(rect(), Theme::shared().color(ColorRole::window));
}

} // namespace Quillstacks
