#include "interface/Card.h"
#include "interface/Divider.h"
#include "interface/SegmentedPicker.h"
#include "library/restore/RestoreQuillstacksView.h"
#include "SettingsFixture.h"

#include <QLayout>

namespace Quillstacks {
namespace {

class SettingsRestore : public SettingsFixture {
protected:
    void openAdvanced() {
        open();
        settings->selectTab(SettingsTab::advanced);
        QCoreApplication::processEvents();
    }
    [[nodiscard]] RestoreQuillstacksView* restore() const { return settings->findChild<RestoreQuillstacksView*>(); }
};

TEST_F(SettingsRestore, oneCardHoldsDataRestoreAndLogsWithLinesBetween) {
    openAdvanced();
    ASSERT_TRUE(restore());
    const QLayout* column = restore()->parentWidget()->layout();
    EXPECT_TRUE(qobject_cast<Card*>(restore()->parentWidget()));
    EXPECT_EQ(column->spacing(), 24);
    QStringList groups;
    for (int i = 0; i < column->count(); ++i) {
        QWidget* item = column->itemAt(i)->widget();
        groups += qobject_cast<Divider*>(item) ? QStringLiteral("line") : item->objectName();
    }
    EXPECT_EQ(groups, (QStringList{QStringLiteral("DataExportImportView"), QStringLiteral("line"),
                                   QStringLiteral("RestoreQuillstacksView"), QStringLiteral("line"),
                                   QStringLiteral("DebugLogsSettingsView")}));
}

TEST_F(SettingsRestore, restoreAndLogsHaveTheirSymbols) {
    openAdvanced();
    EXPECT_TRUE(hasSymbol(*restore(), "arrow.counterclockwise", 18, ColorRole::text2));
    EXPECT_TRUE(hasSymbol(*part("DebugLogsSettingsView"), "doc.text.magnifyingglass", 18, ColorRole::purple));
}

TEST_F(SettingsRestore, theLogsSayWhatTheyHold) {
    openAdvanced();
    EXPECT_EQ(texts(*part("DebugLogsSettingsView")),
              (QStringList{QStringLiteral("Debug Logs"),
                           QStringLiteral("Export debug logs to help diagnose issues. Logs contain app events and "
                                          "errors but not your prompt content.")}));
}

TEST_F(SettingsRestore, afterARestoreTheGeneralTabShowsTheDefaultsToo) {
    openAdvanced();
    settings->selectTab(SettingsTab::general);
    named(QStringLiteral("Automatically download updates"))->click();
    named(QStringLiteral("Automatically check for updates"))->click();
    named(QStringLiteral("Enable Lexiwell"))->click();
    named(QStringLiteral("Light"))->click();
    settings->selectTab(SettingsTab::advanced);
    restore()->restore();
    for (int turn = 0; restore()->isRestoring() && turn < 20; ++turn)
        clock.advance(std::chrono::nanoseconds(0));
    settings->selectTab(SettingsTab::general);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(named(QStringLiteral("Automatically download updates"))->isChecked());
    EXPECT_TRUE(named(QStringLiteral("Automatically check for updates"))->isChecked());
    EXPECT_TRUE(named(QStringLiteral("Enable Lexiwell"))->isChecked());
    EXPECT_TRUE(named(QStringLiteral("Dark"))->isChecked());
}

TEST_F(SettingsRestore, aRestoreRecoloursTheOpenSettingsAndTheyShowTheDefaults) {
    preferences->set(QStringLiteral("appearanceMode"), QStringLiteral("light"));
    preferences->set(QStringLiteral("versionHistoryLimit"), qint64{120});
    openAdvanced();
    ASSERT_EQ(Theme::shared().scheme(), ColorScheme::light);
    ASSERT_TRUE(texts(*settings).contains(QStringLiteral("Keep last 120 versions")));
    restore()->restore();
    for (int turn = 0; restore()->isRestoring() && turn < 20; ++turn)
        clock.advance(std::chrono::nanoseconds(0));
    EXPECT_EQ(Theme::shared().scheme(), ColorScheme::dark);
    EXPECT_TRUE(texts(*settings).contains(QStringLiteral("Keep last 50 versions")));
    EXPECT_TRUE(texts(*settings).contains(QStringLiteral("Quillstacks has been restored to factory defaults.")));
}

TEST_F(SettingsRestore, underItsQuestionEscapeClosesTheQuestionAndNotTheSettings) {
    openAdvanced();
    restore()->confirmRestore();
    press(Qt::Key_Escape);
    EXPECT_FALSE(restore()->isConfirmingRestore());
    EXPECT_EQ(Sheet::top(&window), sheet);
}

} // namespace
} // namespace Quillstacks
