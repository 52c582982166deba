#include "mainwindow/ContentView.h"

#include "interface/IconButton.h"
#include "interface/Sheet.h"
#include "interface/Theme.h"
#include "interface/Typing.h"
#include "library/model/ModelContext.h"
#include "library/PromptListView.h"
#include "library/tags/TagEditorView.h"
#include "mainwindow/HelpView.h"
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
    addToolbarItem(QStringLiteral("gear"), QStringLiteral("Settings"), QKeySequence(Qt::CTRL | Qt::Key_Comma),
                   &ContentView::presentSettings);
    addToolbarItem(QStringLiteral("questionmark.circle"), QStringLiteral("Help"), QKeySequence(Qt::CTRL | Qt::Key_H),
                   &ContentView::presentHelp);
}

void ContentView::addToolbarItem(const QString& symbol, const QString& title, const QKeySequence& key,
                                 void (ContentView::*action)()) {
    auto* item = new IconButton(symbol, title);
    item->setSymbolSize(19);
    connect(item, &QAbstractButton::clicked, this, action);
    list->addWindowItem(item);
    connect(new QShortcut(key, this), &QShortcut::activated, this, action);
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

void ContentView::presentHelp() {
    if (presentingHelp || Sheet::covers(this))
        return;
    presentingHelp = true;
    auto help = std::make_unique<HelpView>();
    HelpView* view = help.get();
    Sheet* sheet = Sheet::present(this, std::move(help), HelpView::sheetOptions());
    connect(view, &HelpView::closed, sheet, &Sheet::dismiss);
    connect(sheet, &Sheet::closed, this, [this] { presentingHelp = false; });
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
