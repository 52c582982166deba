// Export and import as a card of the settings.
#include "backup/DataExportImportView.h"
#include "backup/DataExportImportViewModel.h"
#include "interface/ScrollArea.h"
#include "SettingsFixture.h"

#include <QFile>
#include <QKeyEvent>

namespace Quillstacks {
namespace {

class SettingsBackup : public SettingsFixture {
protected:
    void openAdvanced() {
        open();
        settings->selectTab(SettingsTab::advanced);
        QCoreApplication::processEvents();
        model = settings->findChild<DataExportImportViewModel*>();
        ASSERT_NE(model, nullptr);
    }
    /// A key press alone: no turn of the loop goes by, in which the import could come to its end.
    void pressMeanwhile(Qt::Key key, const QString& text = {}) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
        QCoreApplication::sendEvent(window.windowHandle(), &event);
    }
    [[nodiscard]] QString missing() const { return library.folderPath() + QStringLiteral("/missing.json"); }

    FakeDesktop& desktop = FakeDesktop::shared();
    DataExportImportViewModel* model = nullptr;
};

TEST_F(SettingsBackup, itsCardStandsBetweenTheVersionHistoryAndTheDebugLogs) {
    openAdvanced();
    const QStringList shown = texts(*settings);
    const auto at = shown.indexOf(QStringLiteral("Data Management"));
    EXPECT_GT(at, shown.indexOf(QStringLiteral("Version History")));
    EXPECT_LT(at, shown.indexOf(QStringLiteral("Debug Logs")));
    EXPECT_EQ(settings->findChild<DataExportImportView*>()->parentWidget(),
              part("DebugLogsSettingsView")->parentWidget())
        << "one card";
}

TEST_F(SettingsBackup, switchingTabsKeepsTheStateOfImportAndExport) {
    openAdvanced();
    model->setExporting(true);
    settings->selectTab(SettingsTab::general);
    settings->selectTab(SettingsTab::advanced);
    QCoreApplication::processEvents();
    ASSERT_NE(named(QStringLiteral("Exporting...")), nullptr);
    EXPECT_FALSE(named(QStringLiteral("Exporting..."))->isEnabled());
    EXPECT_EQ(settings->findChild<DataExportImportViewModel*>(), model);
}

TEST_F(SettingsBackup, inASmallWindowTheButtonsThatTabReachesAreClearOfTheFades) {
    open({700, 450});
    settings->selectTab(SettingsTab::advanced);
    QCoreApplication::processEvents();
    const auto* area = settings->findChild<ScrollArea*>();
    const QRect clear(0, 28, area->viewport()->width(), area->viewport()->height() - 28 - 44);
    for (const char* title : {"Export", "Import"}) {
        const QWidget* button = named(QString::fromLatin1(title));
        for (int i = 0; i < 20 && QApplication::focusWidget() != button; ++i)
            press(Qt::Key_Tab);
        ASSERT_EQ(QApplication::focusWidget(), button);
        const QRect place(button->mapTo(area->viewport(), QPoint()), button->size());
        EXPECT_TRUE(clear.contains(place)) << title << ": " << place.top() << " to " << place.bottom();
    }
}

TEST_F(SettingsBackup, theSettingsCanNotBeClosedWhileAnImportRunsAndItsResultComesBeforeThem) {
    openAdvanced();
    click(named(QStringLiteral("Import")));
    ASSERT_TRUE(desktop.answerFileDialog({missing(), {}}));
    pressMeanwhile(Qt::Key_Escape);
    pressMeanwhile(Qt::Key_Return, QStringLiteral("\r"));
    EXPECT_TRUE(model->isImporting());
    EXPECT_FALSE(sheet->isDismissed());
    ASSERT_TRUE(QTest::qWaitFor([this] { return !model->isImporting(); }));
    ASSERT_NE(named(QStringLiteral("OK")), nullptr);
    press(Qt::Key_Return);
    EXPECT_FALSE(model->showingImportAlert());
    EXPECT_FALSE(sheet->isDismissed());
    press(Qt::Key_Return);
    EXPECT_TRUE(sheet->isDismissed());
}

} // namespace
} // namespace Quillstacks
