#include "mainwindow/ContentView.h"

#include "interface/Theme.h"
#include "library/PromptListView.h"
#include "mainwindow/SidebarView.h"

#include <QHBoxLayout>
#include <QPainter>

namespace Quillstacks {

ContentView::ContentView(ModelContext& modelContext, QWidget* parent)
    : QWidget(parent), sidebar(new SidebarView(this)), list(new PromptListView(modelContext, this)) {
    setObjectName(QStringLiteral("ContentView"));
    auto* columns = new QHBoxLayout(this);
    columns->setContentsMargins(0, 0, 0, 0);
    columns->setSpacing(0);
    columns->addWidget(sidebar);
    columns->addWidget(list, 1);
    connect(sidebar, &SidebarView::searchTextChanged, this, &ContentView::setSearchText);
    connect(sidebar, &SidebarView::selectedTagIdChanged, this, &ContentView::setSelectedTagId);
    // The list's keys work from the start; the search field is a click or a Tab away.
    list->setFocus(Qt::OtherFocusReason);
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

void ContentView::paintEvent(QPaintEvent*) {
    QPainter(this).fillRect(rect(), Theme::shared().color(ColorRole::window));
}

} // namespace Quillstacks
