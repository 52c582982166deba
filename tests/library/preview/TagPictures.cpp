#include "TagPictures.h"

#include "interface/Menu.h"
#include "interface/Sheet.h"
#include "library/model/LiveQuery.h"
#include "library/model/ModelContext.h"
#include "library/PromptListView.h"
#include "library/tags/SidebarTagsSection.h"
#include "library/tags/TagEditorView.h"
#include "library/tags/TagSelectorView.h"
#include "mainwindow/ContentView.h"
#include "mainwindow/SidebarView.h"

#include <QAbstractButton>
#include <QCursor>
#include <QTest>
#include <QVBoxLayout>

namespace Quillstacks {
namespace {

constexpr int settleTime = 700; ///< milliseconds, longer than any animation

void take(QWidget& widget, const QString& folder, const char* name) {
    QTest::qWait(settleTime);
    widget.grab().save(folder + QLatin1Char('/') + QLatin1String(name) + QStringLiteral(".png"));
}

Tag* tagNamed(ModelContext& context, const char* name) {
    return context.tagsWithName(QLatin1String(name)).first();
}

void hover(QWidget& within, const QString& rowTitle) {
    for (QAbstractButton* row : within.findChildren<QAbstractButton*>())
        if (row->accessibleName() == rowTitle)
            QCursor::setPos(row->mapToGlobal(row->rect().center()));
}

void takeSidebar(ContentView& view, ModelContext& context, const QString& folder) {
    SidebarTagsSection& section = view.findChild<SidebarView*>()->tagsSection();
    view.promptList().select(view.promptList().filteredPrompts().at(1));
    hover(section, QStringLiteral("Learning"));
    take(view, folder, "tags");
    Menu* menu = section.makeContextMenu(tagNamed(context, "Learning"));
    menu->popup(view.mapToGlobal(QPoint(100, 300)));
    take(*menu, folder, "tag-menu");
    menu->close();
    section.askToDelete(tagNamed(context, "Learning"));
    take(view, folder, "tag-alert");
    section.cancelDeletion();
    section.select(tagNamed(context, "Code")->id());
    section.moveSelection(1);
    take(view, folder, "tag-selected");
    section.select({});
    view.promptList().setFocus();
}

void takeEditor(ContentView& view, ModelContext& context, const QString& folder) {
    view.onCreateTag();
    auto* editor = qobject_cast<TagEditorView*>(Sheet::top(&view)->content());
    take(view, folder, "tag-editor-new");
    editor->setName(QStringLiteral("Onboarding"));
    editor->setColorHex(QStringLiteral("2EC4B6"));
    take(view, folder, "tag-editor");
    editor->cancel();
    view.onEditTag(tagNamed(context, "Review"));
    take(view, folder, "tag-editor-edit");
    Sheet::top(&view)->dismiss();
}

void takeSelector(ContentView& view, ModelContext& context, const QString& folder) {
    TagQuery tags(context);
    auto content = std::make_unique<QWidget>();
    content->setFixedWidth(520);
    auto* column = new QVBoxLayout(content.get());
    column->setContentsMargins(24, 24, 24, 24);
    auto* selector = new TagSelectorView(context, tags, content.get());
    selector->setSelection({tagNamed(context, "Learning"), tagNamed(context, "Writing")});
    column->addWidget(selector);
    Sheet* sheet = Sheet::present(&view, std::move(content), {});
    take(view, folder, "tag-selector");
    QTest::keyClick(view.windowHandle(), Qt::Key_Tab);
    QTest::keyClick(view.windowHandle(), Qt::Key_End);
    take(view, folder, "tag-selector-end");
    sheet->dismiss();
    QTest::qWait(settleTime);
}

} // namespace

void takeTagPictures(ContentView& view, ModelContext& context, const QString& folder) {
    view.resize(1280, 720);
    takeSidebar(view, context, folder);
    takeEditor(view, context, folder);
    takeSelector(view, context, folder);
}

} // namespace Quillstacks
