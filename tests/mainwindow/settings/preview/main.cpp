#include "interface/AppearanceMode.h"
#include "interface/ScrollArea.h"
#include "interface/Sheet.h"
#include "interface/Style.h"
#include "mainwindow/settings/SettingsView.h"

#include <QApplication>
#include <QDir>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTest>

using namespace Quillstacks;

namespace {

constexpr int settleTime = 400; ///< milliseconds, longer than any animation

void take(QWidget& window, const QString& file) {
    QTest::qWait(settleTime);
    window.grab().save(file);
}

void takeAll(QWidget& window, const QString& folder) {
    auto content = std::make_unique<SettingsView>();
    SettingsView* settings = content.get();
    Sheet::present(&window, std::move(content), SettingsView::sheetOptions());
    take(window, folder + QStringLiteral("/settings-general.png"));
    settings->selectTab(SettingsTab::advanced);
    take(window, folder + QStringLiteral("/settings-advanced.png"));
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
    const QTemporaryDir home;
    for (const char* name : {"XDG_DATA_HOME", "XDG_CONFIG_HOME"})
        qputenv(name, home.path().toUtf8());
    QApplication application(argc, argv);
    QFont font(QStringLiteral("Inter"));
    font.setPointSizeF(10.5);
    QApplication::setFont(font);
    installStyle(application);
    const QStringList arguments = QApplication::arguments();
    const QString folder = arguments.value(1, QStringLiteral("."));
    QDir().mkpath(folder);
    appearanceModePreference().set(arguments.contains(QStringLiteral("light")) ? AppearanceMode::light
                                                                               : AppearanceMode::dark);
    QWidget window;
    window.resize(1440, 900);
    window.show();
    takeAll(window, folder);
    return 0;
}
