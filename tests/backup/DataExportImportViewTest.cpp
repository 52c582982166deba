#include "backup/DataExportImportView.h"

#include "backup/format/BackupReader.h"
#include "BackupFixture.h"
#include "interface/BusyIndicator.h"
#include "interface/Button.h"
#include "interface/Label.h"
#include "interface/ProgressBar.h"
#include "interface/Sheet.h"
#include "interface/Theme.h"
#include "platform/FakeDesktop.h"
#include "support/ShownSymbol.h"
#include "support/TestPreferences.h"

#include <QVBoxLayout>
#include <SQLiteCpp/SQLiteCpp.h>

#include <sys/stat.h>

namespace Quillstacks {
namespace {

class DataExportImport : public BackupFixture {
protected:
    DataExportImport() {
        Theme::shared().refresh();
        window.resize(900, 600);
        auto* column = new QVBoxLayout(&window);
        view = new DataExportImportView(library.context(), model);
        column->addWidget(view);
        column->addStretch();
    }
    void showWindow() {
        window.show();
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }
    [[nodiscard]] Button* button(const char* title) const {
        for (Button* one : window.findChildren<Button*>())
            if (one->text() == QLatin1String(title) && !(Sheet::of(one) && Sheet::of(one)->isDismissed()))
                return one;
        return nullptr;
    }
    /// Starts to export a hundred prompts, and stops in the middle; a TickingClock must make each slice short.
    void stopWithinAnExport() {
        for (int number = 0; number < 100; ++number)
            library.addPrompt(QString::number(number));
        button("Export")->click();
        for (int turn = 0; turn < 5; ++turn)
            QCoreApplication::processEvents();
        ASSERT_TRUE(model.isExporting());
    }
    [[nodiscard]] static QStringList texts(const QWidget& within) {
        QStringList result;
        for (const Label* label : within.findChildren<Label*>())
            result += label->text();
        return result;
    }
    void settle() {
        ASSERT_TRUE(QTest::qWaitFor(
            [this] { return !model.isExporting() && !model.isImporting() && !Sheet::top(&window); }, 60'000));
    }
    /// From the click to the open save dialog.
    void prepare() {
        button("Export")->click();
        ASSERT_TRUE(QTest::qWaitFor([this] { return view->showingFileExporter(); }, 60'000));
    }
    void chooseTarget(const QString& path) { ASSERT_TRUE(desktop.answerFileDialog({path, {}})); }
    [[nodiscard]] ExportedData saved(const QString& path) const { return BackupReader::decoded(contents(path)); }

    FakeDesktop& desktop = FakeDesktop::fresh();
    TestPreferences preferences;
    QWidget window;
    DataExportImportView* view = nullptr;
};

TEST_F(DataExportImport, showsItsTextsInOrder) {
    EXPECT_EQ(
        texts(*view),
        (QStringList{
            QStringLiteral("Data Management"),
            QStringLiteral("Export your prompts and tags to a backup file, or import data from a previous export."),
            QStringLiteral("Export Data"), QStringLiteral("Save all your prompts and tags to a backup file"),
            QStringLiteral("Import Data"), QStringLiteral("Restore prompts and tags from a backup file"),
            QStringLiteral("Import Behavior"),
            QStringLiteral("Existing items with the same name will be skipped. Tags are matched by name, prompts by "
                           "title.")}));
    EXPECT_EQ(button("Export")->kind(), Button::Kind::bordered);
    EXPECT_EQ(button("Import")->kind(), Button::Kind::bordered);
    const QColor ink = Theme::shared().color(ColorRole::text);
    EXPECT_TRUE(showsSymbol(*button("Export"), QStringLiteral("square.and.arrow.up"), 15, ink));
    EXPECT_TRUE(showsSymbol(*button("Import"), QStringLiteral("square.and.arrow.down"), 15, ink));
    EXPECT_NE(view->findChild<QWidget*>(QStringLiteral("info.circle.fill")), nullptr);
    EXPECT_EQ(view->objectName(), QStringLiteral("DataExportImportView"));
}

TEST_F(DataExportImport, anExportIsPreparedThenSavedWhereTheUserSays) {
    Tag* tag = library.addTag(QStringLiteral("Tag"));
    Prompt* prompt = library.addPrompt(QStringLiteral("Prompt"), QStringLiteral("Body"), {tag});
    library.addVersion(prompt, QStringLiteral("Older"));
    library.context().save();
    button("Export")->click();
    EXPECT_TRUE(model.isExporting());
    EXPECT_FALSE(view->showingFileExporter());
    ASSERT_TRUE(QTest::qWaitFor([this] { return view->showingFileExporter(); }));
    EXPECT_FALSE(model.isExporting());
    ASSERT_TRUE(view->exportData().has_value());
    EXPECT_EQ(desktop.callsOf(QStringLiteral("saveFile")),
              QStringList{QStringLiteral("saveFile json Quillstacks-Backup")});
    EXPECT_EQ(infos(), (QStringList{QStringLiteral("Starting data export"),
                                    QStringLiteral("Export prepared: 1 tags, 1 prompts")}));
    log.clear();

    chooseTarget(filePath("Mine.json"));
    EXPECT_FALSE(view->showingFileExporter());
    settle();
    EXPECT_EQ(infos(), (QStringList{QStringLiteral("Export completed - items: 1"),
                                    QStringLiteral("Export saved to: Mine.json")}));
    EXPECT_TRUE(errors().isEmpty());
    EXPECT_FALSE(view->exportData().has_value());
    const ExportedData data = saved(filePath("Mine.json"));
    EXPECT_EQ(data.version, QStringLiteral("1.0"));
    ASSERT_EQ(data.prompts.size(), 1);
    EXPECT_EQ(data.prompts[0].id, prompt->id());
    EXPECT_EQ(data.prompts[0].versions.size(), 1);
    EXPECT_FALSE(model.showingImportAlert());
}

TEST_F(DataExportImport, tagsAreSortedByNameAndPromptsByTheirLastChange) {
    for (const char* name : {"Item 10", "banana", "Item 9", "Apple"})
        library.addTag(QLatin1String(name));
    for (int number = 0; number < 3; ++number)
        library.addPrompt(QString::number(number))->setUpdatedAt(sampleDate(2020 + number * 2 % 3, 1, 1, 0, 0, 0));
    prepare();
    const ExportedData data = BackupReader::decoded(*view->exportData());
    QStringList names;
    for (const ExportedTag& tag : data.tags)
        names += tag.name;
    EXPECT_EQ(names, (QStringList{QStringLiteral("Apple"), QStringLiteral("banana"), QStringLiteral("Item 9"),
                                  QStringLiteral("Item 10")}));
    QStringList titles;
    for (const ExportedPrompt& prompt : data.prompts)
        titles += prompt.title;
    EXPECT_EQ(titles, (QStringList{QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("0")}));
}

TEST_F(DataExportImport, anExportOfAnEmptyLibrarySucceeds) {
    prepare();
    chooseTarget(filePath());
    settle();
    EXPECT_TRUE(saved(filePath()).prompts.isEmpty());
    EXPECT_TRUE(errors().isEmpty());
}

TEST_F(DataExportImport, anExportThatFailsShowsNoMessage) {
    Prompt* prompt = library.addPrompt(QStringLiteral("Prompt"));
    library.addVersion(prompt, QStringLiteral("Older"));
    library.context().save();
    library.close();
    {
        SQLite::Database store(library.path().toStdString(), SQLite::OPEN_READWRITE);
        store.exec("UPDATE versions SET tag_names='no list'");
    }
    library.open();
    DataExportImportView broken(library.context(), model, &window);
    broken.exportLibrary();
    ASSERT_TRUE(QTest::qWaitFor([this] { return !model.isExporting(); }));
    ASSERT_EQ(errors().size(), 1);
    EXPECT_TRUE(errors()[0].startsWith(QStringLiteral("Export preparation failed: "))) << errors()[0].toStdString();
    EXPECT_FALSE(broken.showingFileExporter());
    EXPECT_FALSE(broken.exportData().has_value());
    EXPECT_TRUE(desktop.callsOf(QStringLiteral("saveFile")).isEmpty());
    EXPECT_EQ(Sheet::top(&window), nullptr);
    EXPECT_TRUE(button("Export")->isEnabled());
}

TEST_F(DataExportImport, aSaveThatFailsIsLoggedAndTheDataStay) {
    prepare();
    chooseTarget(filePath("missing/Backup.json"));
    settle();
    ASSERT_EQ(errors().size(), 2);
    EXPECT_EQ(errors()[0], QStringLiteral("Export failed"));
    EXPECT_EQ(errors()[1], QStringLiteral("Export failed: Could not write the file “%1”: No such file or directory.")
                               .arg(filePath("missing/Backup.json")));
    EXPECT_TRUE(view->exportData().has_value());
    EXPECT_EQ(Sheet::top(&window), nullptr);
}

TEST_F(DataExportImport, aDialogThatFailsIsLogged) {
    prepare();
    ASSERT_TRUE(desktop.answerFileDialog({{}, QStringLiteral("not here")}));
    EXPECT_EQ(errors(), (QStringList{QStringLiteral("Export failed"), QStringLiteral("Export failed: not here")}));
    EXPECT_TRUE(view->exportData().has_value());
    log.clear();
    button("Import")->click();
    ASSERT_TRUE(desktop.answerFileDialog({{}, QStringLiteral("not there")}));
    EXPECT_EQ(errors(), QStringList{QStringLiteral("File picker failed: not there")});
    EXPECT_FALSE(model.isImporting());
}

TEST_F(DataExportImport, aCancelledSaveKeepsTheDataUntilTheNextExportReplacesThem) {
    prepare();
    const QByteArray first = *view->exportData();
    log.clear();
    ASSERT_TRUE(desktop.answerFileDialog({}));
    EXPECT_FALSE(view->showingFileExporter());
    EXPECT_EQ(view->exportData(), first);
    EXPECT_TRUE(log.lines().isEmpty());
    library.addPrompt(QStringLiteral("New"));
    prepare();
    EXPECT_NE(view->exportData(), first);
}

TEST_F(DataExportImport, theOlderBackupSurvivesASaveThatFails) {
    const QString path = makeFile("older");
    prepare();
    ASSERT_TRUE(QDir(files.path()).mkdir(QStringLiteral("folder.json")));
    chooseTarget(filePath("folder.json"));
    settle();
    EXPECT_EQ(errors().size(), 2);
    EXPECT_EQ(contents(path), "older");
}

TEST_F(DataExportImport, theVersionsThatAnExportReadAreLetGoAndCanBeReadAgain) {
    Prompt* prompt = library.addPrompt(QStringLiteral("Prompt"));
    library.addVersion(prompt, QStringLiteral("Older"));
    library.saveAndReopen();
    DataExportImportView fresh(library.context(), model, &window);
    fresh.exportLibrary();
    ASSERT_TRUE(QTest::qWaitFor([&fresh] { return fresh.showingFileExporter(); }));
    EXPECT_EQ(titlesOf(library.prompt(QStringLiteral("Prompt"))->versions()), QStringList{QStringLiteral("Older")});
}

TEST_F(DataExportImport, theImportAsksForAFileAndTellsTheResultInAnAlert) {
    showWindow();
    button("Import")->click();
    EXPECT_TRUE(view->showingFileImporter());
    EXPECT_EQ(desktop.callsOf(QStringLiteral("openFile")), QStringList{QStringLiteral("openFile json")});
    ASSERT_TRUE(desktop.answerFileDialog({makeFile(sampleText()), {}}));
    EXPECT_FALSE(view->showingFileImporter());
    EXPECT_TRUE(model.isImporting());
    ASSERT_TRUE(QTest::qWaitFor([this] { return model.showingImportAlert(); }));
    Sheet* alert = Sheet::top(&window);
    ASSERT_NE(alert, nullptr);
    EXPECT_EQ(texts(*alert),
              (QStringList{
                  QStringLiteral("Import Result"),
                  QStringLiteral("Import completed successfully!\n\nImported:\n• 1 tags\n• 1 prompts\n• 1 versions")}));
    QTest::keyClick(window.windowHandle(), Qt::Key_Return);
    EXPECT_FALSE(model.showingImportAlert());
    EXPECT_EQ(Sheet::top(&window), nullptr);
    EXPECT_NE(library.prompt(QStringLiteral("Summarise")), nullptr);
}

TEST_F(DataExportImport, aFileThatCanNotBeImportedIsToldInTheAlert) {
    button("Import")->click();
    ASSERT_TRUE(desktop.answerFileDialog({makeFile("{}"), {}}));
    ASSERT_TRUE(QTest::qWaitFor([this] { return model.showingImportAlert(); }));
    EXPECT_EQ(
        texts(*Sheet::top(&window)).value(1),
        QStringLiteral("Import completed with issues:\n\nImported:\n• 0 tags\n• 0 prompts\n• 0 versions\n\nErrors:\n"
                       "Failed to import data: version is missing"));
}

TEST_F(DataExportImport, aCancelledPickerDoesNothing) {
    button("Import")->click();
    ASSERT_TRUE(desktop.answerFileDialog({}));
    EXPECT_FALSE(view->showingFileImporter());
    EXPECT_FALSE(model.isImporting());
    EXPECT_TRUE(log.lines().isEmpty());
    EXPECT_EQ(Sheet::top(&window), nullptr);
}

TEST_F(DataExportImport, theButtonsTurnBusyWhileTheirWorkGoesOn) {
    model.setExporting(true);
    ASSERT_NE(button("Exporting..."), nullptr);
    EXPECT_FALSE(button("Exporting...")->isEnabled());
    EXPECT_NE(button("Exporting...")->findChild<BusyIndicator*>(), nullptr);
    EXPECT_TRUE(button("Import")->isEnabled());
    model.setExporting(false);
    EXPECT_TRUE(button("Export")->isEnabled());
    EXPECT_EQ(button("Export")->findChild<BusyIndicator*>(), nullptr);
    model.importData(makeFile(sampleText()), library.context());
    ASSERT_NE(button("Importing..."), nullptr);
    EXPECT_FALSE(button("Importing...")->isEnabled());
    ASSERT_TRUE(QTest::qWaitFor([this] { return !model.isImporting(); }));
    EXPECT_TRUE(button("Import")->isEnabled());
}

TEST_F(DataExportImport, allBeneathIsInertFromTheFirstMomentAndTheKeyboardComesBack) {
    const TickingClock clock;
    for (int number = 0; number < 500; ++number)
        library.addPrompt(QString::number(number));
    showWindow();
    button("Export")->setFocus(Qt::TabFocusReason);
    QTest::keyClick(window.windowHandle(), Qt::Key_Space);
    ASSERT_TRUE(model.isExporting());
    EXPECT_TRUE(Sheet::covers(view));
    EXPECT_FALSE(button("Exporting...")->hasFocus());
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {},
                      button("Import")->mapTo(&window, button("Import")->rect().center()));
    QTest::keyClick(window.windowHandle(), Qt::Key_Escape);
    EXPECT_TRUE(Sheet::covers(view)) << "it can't be closed";
    EXPECT_FALSE(view->showingFileImporter());
    settle();
    EXPECT_TRUE(button("Export")->hasFocus());
}

TEST_F(DataExportImport, aProgressIsSeenAfterHalfASecond) {
    const TickingClock clock;
    for (int number = 0; number < 400; ++number)
        library.addPrompt(QString::number(number));
    Theme::shared().refresh();
    QCoreApplication::processEvents(); // the first screen of a process brings the palette
    const auto picture = [this] { return window.grab().toImage().pixelColor(5, 5); };
    const QColor bare = picture();
    button("Export")->click();
    QCoreApplication::processEvents();
    EXPECT_EQ(picture(), bare);
    // The clock moves by itself: its half second comes long before the end.
    ASSERT_TRUE(QTest::qWaitFor([&] {
        MainQueue::runDue();
        return picture() != bare;
    }));
    EXPECT_TRUE(model.isExporting());
    const auto* bar = window.findChild<ProgressBar*>();
    ASSERT_NE(bar, nullptr);
    EXPECT_GT(bar->value(), 0);
    EXPECT_LT(bar->value(), bar->maximum());
    EXPECT_EQ(texts(*Sheet::top(&window)), QStringList{QStringLiteral("Exporting...")});
    settle();
    ASSERT_TRUE(QTest::qWaitFor([&] { return picture() == bare; }));
}

TEST_F(DataExportImport, aResultThatNobodyReadYetIsShownByTheNextScreen) {
    delete view;
    model.importData(makeFile(sampleText()), library.context());
    ASSERT_TRUE(QTest::qWaitFor([this] { return !model.isImporting(); }));
    auto* next = new DataExportImportView(library.context(), model); // finds its place in the window later
    window.layout()->addWidget(next);
    EXPECT_EQ(Sheet::top(&window), nullptr);
    QCoreApplication::processEvents();
    ASSERT_NE(Sheet::top(&window), nullptr);
    EXPECT_FALSE(Sheet::top(&window)->isAncestorOf(next));
    EXPECT_EQ(texts(*Sheet::top(&window)).value(0), QStringLiteral("Import Result"));
}

TEST_F(DataExportImport, whatIsDeletedWhileItIsPreparedIsNotInTheBackup) {
    const TickingClock clock;
    ASSERT_NO_FATAL_FAILURE(stopWithinAnExport());
    for (Prompt* prompt : library.context().prompts())
        library.context().remove(prompt);
    ASSERT_TRUE(QTest::qWaitFor([this] { return view->showingFileExporter(); }));
    const ExportedData data = BackupReader::decoded(*view->exportData());
    EXPECT_LT(data.prompts.size(), 100);
    for (const ExportedPrompt& prompt : data.prompts)
        EXPECT_FALSE(prompt.title.isEmpty());
}

TEST_F(DataExportImport, aScreenThatGoesWithItsModelAsksItNothing) {
    const TickingClock clock;
    for (int number = 0; number < 100; ++number)
        library.addPrompt(QString::number(number));
    QWidget owner;
    auto* own = new DataExportImportViewModel(&owner); // made first, so it goes first
    auto* screen = new DataExportImportView(library.context(), *own, &owner);
    screen->exportLibrary();
    QCoreApplication::processEvents();
    ASSERT_TRUE(own->isExporting());
    delete own;
    delete screen;
    EXPECT_EQ(Sheet::top(&owner), nullptr);
}

TEST_F(DataExportImport, aScreenThatGoesWhileItExportsGivesItUp) {
    const TickingClock clock;
    ASSERT_NO_FATAL_FAILURE(stopWithinAnExport());
    delete view;
    EXPECT_FALSE(model.isExporting()) << "the next screen can export again";
    for (int turn = 0; turn < 500; ++turn)
        QCoreApplication::processEvents();
    EXPECT_TRUE(desktop.callsOf(QStringLiteral("saveFile")).isEmpty());
    EXPECT_EQ(Sheet::top(&window), nullptr);
}

} // namespace
} // namespace Quillstacks
