// Shows quick access with a few prompts, to look at: preview_quickaccess [--light] [--empty] [--search TEXT]
// [--down N] [--return] [--preview]
#include "interface/AppearanceMode.h"
#include "interface/Sheet.h"
#include "interface/Style.h"
#include "library/model/ModelContainer.h"
#include "library/model/ModelContext.h"
#include "quickaccess/QuickAccessPanel.h"
#include "quickaccess/QuickAccessView.h"
#include "quickaccess/QuickAccessWindowManager.h"
#include "variables/VariablePreferences.h"
#include "variables/VariableSubstitutionView.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QTemporaryDir>
#include <QTimer>

using namespace Quillstacks;

namespace {

Tag* tag(ModelContext& context, const QString& name) {
    static const QHash<QString, QString> colors{
        {QStringLiteral("Code"), QStringLiteral("#4D96FF")},     {QStringLiteral("Review"), QStringLiteral("#FF6B6B")},
        {QStringLiteral("Product"), QStringLiteral("#F15BB5")},  {QStringLiteral("Writing"), QStringLiteral("#7C5CFC")},
        {QStringLiteral("Research"), QStringLiteral("#2EC4B6")}, {QStringLiteral("Email"), QStringLiteral("#F6C549")},
        {QStringLiteral("Meetings"), QStringLiteral("#FF8E3C")}};
    if (auto* found = context.tagsWithName(name).value(0))
        return found;
    return context.insert(std::make_unique<Tag>(name, colors.value(name)));
}

void add(ModelContext& context, const char* title, const char* body, const QStringList& tagNames, bool pinned = false) {
    QList<Tag*> tags;
    for (const QString& name : tagNames)
        tags << tag(context, name);
    Prompt* prompt = context.insert(std::make_unique<Prompt>(QString::fromUtf8(title), QString::fromUtf8(body), tags));
    if (pinned)
        prompt->togglePin();
}

void fill(ModelContext& context) {
    const QString code = QStringLiteral("Code");
    const QString review = QStringLiteral("Review");
    const QString product = QStringLiteral("Product");
    const QString email = QStringLiteral("Email");
    add(context, "Weekly status in five lines",
        "From my notes of the week write five lines: done, learned, stuck, next, and one line of thanks.",
        {email, QStringLiteral("Meetings")});
    add(context, "Polite but firm reply",
        "Answer the message below. Decline {{request}}, give one honest reason, offer {{alternative}}. Warm tone, no "
        "apology longer than four words.",
        {email, QStringLiteral("Writing")});
    add(context, "Test cases from a story",
        "Derive test cases from the user story below as a table: given, when, then. Mark the edge cases.",
        {code, review});
    add(context, "Bug report triage",
        "Sort these bug reports by cause. For each group name the likely component, one report that reproduces it "
        "best, and what is still missing.",
        {code, product, review});
    add(context, "SQL from a plain question",
        "Given this schema, write one {{dialect}} query that answers the question. Prefer joins to sub-queries, name "
        "every column, and explain the query in two lines beneath it.",
        {code, QStringLiteral("Research")});
    add(context, "Release notes from commits",
        "Group the commits below into Added, Changed and Fixed. Write one plain sentence per entry for people who use "
        "the program, not for those who build it. Skip refactorings.",
        {code, product, QStringLiteral("Writing")});
    add(context, "Code review, line by line",
        "Review the following {{language}} change as a careful senior engineer. List defects first, by severity, each "
        "with its line and the smallest fix. Quote the line before you judge it. Do not comment on formatting. Then "
        "name one thing that is done well.",
        {code, review}, true);
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QFont font(QStringLiteral("Inter"));
    font.setPointSizeF(10.5);
    QApplication::setFont(font);
    QCommandLineParser options;
    options.addOptions({{QStringLiteral("light"), QString()},
                        {QStringLiteral("empty"), QString()},
                        {QStringLiteral("return"), QString()},
                        {QStringLiteral("preview"), QString()},
                        {QStringLiteral("search"), QString(), QStringLiteral("text")},
                        {QStringLiteral("down"), QString(), QStringLiteral("times")}});
    options.process(application);

    QTemporaryDir folder;
    Preferences preferences(folder.filePath(QStringLiteral("preferences.json")));
    Preferences::setStandard(&preferences);
    appearanceModePreference().set(options.isSet(QStringLiteral("light")) ? AppearanceMode::light
                                                                          : AppearanceMode::dark);
    installStyle(application);
    rememberValue(QStringLiteral("alternative"), QStringLiteral("a call next Tuesday, or my notes by mail"));
    rememberValue(QStringLiteral("request"), QStringLiteral("reviewing the draft by tomorrow"));
    ModelContainer container(Schema::current(), {folder.filePath(QStringLiteral("Quillstacks.store"))});
    if (!options.isSet(QStringLiteral("empty")))
        fill(container.mainContext());

    QApplication::setQuitOnLastWindowClosed(false);
    auto& manager = QuickAccessWindowManager::shared();
    manager.setModelContainer(&container);
    manager.toggle();
    QTimer::singleShot(300, &manager, [&] {
        QuickAccessView* view = manager.rootView();
        view->setSearchText(options.value(QStringLiteral("search")));
        for (int i = options.value(QStringLiteral("down")).toInt(); i > 0; --i)
            view->moveDown();
        if (options.isSet(QStringLiteral("return")))
            view->chooseSelected();
        Sheet* sheet = Sheet::top(manager.windowController());
        if (auto* fillIn = sheet ? qobject_cast<VariableSubstitutionView*>(sheet->content()) : nullptr;
            fillIn && options.isSet(QStringLiteral("preview")))
            fillIn->togglePreview();
    });
    const int result = QApplication::exec();
    manager.setModelContainer(nullptr);
    Preferences::setStandard(nullptr);
    return result;
}
