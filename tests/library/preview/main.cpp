#include "interface/IconButton.h"
#include "interface/LazyList.h"
#include "interface/Menu.h"
#include "interface/Sheet.h"
#include "interface/TextField.h"
#include "interface/Theme.h"
#include "library/model/ModelContainer.h"
#include "library/model/ModelContext.h"
#include "library/PromptEditorView.h"
#include "library/PromptListView.h"
#include "mainwindow/ContentView.h"
#include "Samples.h"
#include "support/Preview.h"
#include "TagPictures.h"

#include <QCursor>
#include <QTest>

using namespace Quillstacks;

namespace {

constexpr int settleTime = 700; ///< milliseconds, longer than any animation
constexpr int halfAFold = 100;

/// Takes one picture after another of a content view, and leaves it each time as it was.
class Camera final {
public:
    Camera(ContentView& content, QString outputFolder) : view(content), folder(std::move(outputFolder)) {}

    void takeAll(ModelContext& context) {
        PromptListView& list = view.promptList();
        const QList<Prompt*> prompts = list.filteredPrompts();
        list.select(prompts.at(1));
        hoverRow(3);
        take("main");
        Menu* menu = list.makeContextMenu(prompts.at(3));
        menu->popup(view.mapToGlobal(QPoint(500, 460)));
        QTest::qWait(settleTime);
        menu->grab().save(folder + QStringLiteral("/menu.png"));
        menu->close();
        list.askToDeleteSelection();
        take("alert");
        list.cancelDeletion();
        list.select(prompts.at(3));
        view.setSelectedTagId(context.tagsWithName(QStringLiteral("Code")).first()->id());
        QTest::qWait(settleTime);
        for (IconButton* button : list.findChildren<IconButton*>())
            if (button->isVisible() && button->accessibleName() == QStringLiteral("Copy prompt body"))
                button->click();
        take("toast");
        view.setSelectedTagId(Uuid());
        view.setSearchText(QStringLiteral("no hits at all"));
        take("search-without-hits");
        view.setSearchText(QString());
        view.presentHelp();
        take("help");
        Sheet::top(&view)->dismiss();
        list.moveSelection(99);
        for (int i = 0; i < 20; ++i)
            list.moveSelection(1);
        take("end-of-list");
        takeEditors(prompts.at(1));
    }
    void take(const char* name) {
        QTest::qWait(settleTime);
        view.grab().save(folder + QLatin1Char('/') + QLatin1String(name) + QStringLiteral(".png"));
    }

private:
    void hoverRow(int index) {
        auto* rows = view.findChild<LazyList*>();
        QCursor::setPos(rows->viewport()->mapToGlobal(rows->rowGeometry(index).center()));
    }
    void takeEditors(Prompt* prompt) {
        PromptListView& list = view.promptList();
        view.resize(1440, 900);
        prompt->appendVersion(std::make_unique<PromptVersion>(prompt->id(), QStringLiteral("Explain an idea"),
                                                              QStringLiteral("Explain {topic}."), prompt->tags()));
        list.edit(prompt);
        take("editor");
        auto* editor = qobject_cast<PromptEditorView*>(Sheet::top(&list)->content());
        editor->setVariablesCollapsed(true);
        QTest::qWait(halfAFold);
        view.grab().save(folder + QStringLiteral("/editor-folding.png"));
        take("editor-collapsed");
        editor->showVersionHistory();
        take("editor-history");
        Sheet::top(&list)->dismiss();
        Sheet::of(editor)->dismiss();
        list.newPrompt();
        take("editor-new");
        view.resize(1280, 720);
        take("editor-small-window");
        view.resize(700, 500);
        take("editor-smallest-window");
        Sheet::top(&list)->dismiss();
    }

    ContentView& view;
    QString folder;
};

} // namespace

int main(int argc, char** argv) {
    const Preview preview(argc, argv);
    const QString folder = Preview::folder();

    ModelContainer container(Schema::current(), {preview.storeFile()});
    ContentView view(container.mainContext());
    view.resize(1280, 720);
    view.show();
    Camera camera(view, folder);
    camera.take("empty");
    addSamples(container.mainContext());
    QTest::qWait(settleTime);
    takeTagPictures(view, container.mainContext(), folder);
    camera.takeAll(container.mainContext());
    return 0;
}
