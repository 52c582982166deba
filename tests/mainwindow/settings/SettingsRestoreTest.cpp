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
