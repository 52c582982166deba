#include "ProgressView.h"

#include "backup/DataExportImportViewModel.h"
#include "interface/Button.h"
#include "interface/ScrollArea.h"
#include "interface/Sheet.h"
#include "library/model/ModelContainer.h"
#include "library/model/ModelContext.h"
#include "mainwindow/settings/SettingsView.h"
#include "support/Preview.h"
#include "upkeep/LaunchAtLoginSettingsView.h"
#include "upkeep/SparkleUpdaterManager.h"

#include <QScrollBar>
#include <QTest>

#include <tuple>

using namespace Quillstacks;

namespace {

constexpr int settleTime = 400;   ///< milliseconds, longer than any animation
constexpr int progressTime = 500; ///< until it appears

void take(QWidget& window, const QString& file) {
    QTest::qWait(settleTime);
    window.grab().save(file);
}

void takeBackup(QWidget& window, SettingsView& settings, ModelContext& library, const QString& folder) {
    auto* backup = settings.findChild<DataExportImportViewModel*>();
    backup->setExporting(true);
    take(window, folder + QStringLiteral("/backup-busy.png"));
    backup->setExporting(false);
    const auto progress = ProgressView::present(&settings, QStringLiteral("Importing..."));
    progress->setFraction(0.4);
    QTest::qWait(progressTime);
    take(window, folder + QStringLiteral("/backup-progress.png"));
    progress->dismiss();
    const QString path = QStringLiteral(SAMPLE_LIBRARY);
    for (const QString& file : {path, path + QStringLiteral(".missing")}) {
        backup->importData(file, library);
        std::ignore = QTest::qWaitFor([&] { return backup->showingImportAlert(); });
        take(window, folder + (file == path ? QStringLiteral("/backup-alert.png")
                                            : QStringLiteral("/backup-alert-failed.png")));
        Button::pressDefault(Sheet::top(&window)->content());
    }
}

/// Updates and login, with all that they can show.
void takeUpkeep(QWidget& window, SettingsView& settings, const QString& folder) {
    QScrollBar* bar = settings.findChild<ScrollArea*>()->verticalScrollBar();
    bar->setValue(bar->maximum());
    auto* login = settings.findChild<LaunchAtLoginSettingsView*>();
    login->setLaunchAtLogin(true);
    SparkleUpdaterManager::shared().setUpdateAvailable(true);
    take(window, folder + QStringLiteral("/settings-general-end.png"));
    SparkleUpdaterManager::shared().setUpdateAvailable(false);
    SparkleUpdaterManager::shared().checkForUpdates();
    window.grab().save(folder + QStringLiteral("/settings-general-checking.png")); // it is over on the next turn
    SparkleUpdaterManager::shared().updaterDidNotFindUpdate();
    SparkleUpdaterManager::shared().updaterController.userDriver().window = [&window](bool) { return &window; };
    SparkleUpdaterManager::shared().checkForUpdates();
    take(window, folder + QStringLiteral("/update-alert.png"));
    Button::pressDefault(Sheet::top(&window)->content());
    // No folder can be made in a device.
    qputenv("XDG_CONFIG_HOME", "/dev/null");
    login->setLaunchAtLogin(false);
    QTest::qWait(settleTime);
    login->setLaunchAtLogin(true);
    take(window, folder + QStringLiteral("/settings-login-failed.png"));
}

void takeAll(QWidget& window, ModelContext& library, const QString& folder) {
    auto content = std::make_unique<SettingsView>(library);
    SettingsView* settings = content.get();
    Sheet::present(&window, std::move(content), SettingsView::sheetOptions());
    take(window, folder + QStringLiteral("/settings-general.png"));
    takeUpkeep(window, *settings, folder);
    settings->selectTab(SettingsTab::advanced);
    take(window, folder + QStringLiteral("/settings-advanced.png"));
    QScrollBar* scrollBar = settings->findChild<ScrollArea*>()->verticalScrollBar();
    scrollBar->setValue(scrollBar->maximum());
    take(window, folder + QStringLiteral("/settings-advanced-end.png"));
    takeBackup(window, *settings, library, folder);
    settings->presentLogExportHelp();
    take(window, folder + QStringLiteral("/log-export-help.png"));
    window.resize(560, 300);
    take(window, folder + QStringLiteral("/log-export-help-small.png"));
    Sheet::top(&window)->dismiss();
    QScrollBar* bar = settings->findChild<ScrollArea*>()->verticalScrollBar();
    bar->setValue(bar->maximum() / 2);
    take(window, folder + QStringLiteral("/settings-advanced-small.png"));
}

} // namespace

int main(int argc, char** argv) {
    const Preview preview(argc, argv);
    const QString folder = Preview::folder();
    QWidget window;
    window.resize(1440, 900);
    window.show();
    const ModelContainer container(Schema::current(), {preview.storeFile()});
    takeAll(window, container.mainContext(), folder);
    return 0;
}
