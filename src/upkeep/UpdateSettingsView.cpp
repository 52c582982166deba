#include "upkeep/UpdateSettingsView.h"

#include "interface/BusyIndicator.h"
#include "interface/Button.h"
#include "interface/Divider.h"
#include "interface/Label.h"
#include "interface/Switch.h"
#include "upkeep/SparkleUpdaterManager.h"
#include "upkeep/UpdatePreferences.h"

#include <QHBoxLayout>
#include <QShowEvent>
#include <QVBoxLayout>

namespace Quillstacks {
namespace {

constexpr double spinnerScale = 0.8;
constexpr int rowGap = 10;

} // namespace

UpdateSettingsView::UpdateSettingsView(SparkleUpdaterManager& manager, QWidget* parent)
    : QWidget(parent), updaterManager(manager) {
    setObjectName(QStringLiteral("UpdateSettingsView"));
    build();
    followPreferences();
    followManager();
    const auto& checks = automaticallyCheckForUpdatesPreference();
    const auto& downloads = automaticallyDownloadUpdatesPreference();
    connect(checkSwitch, &QAbstractButton::toggled, this, [&checks](bool on) { checks.set(on); });
    connect(downloadSwitch, &QAbstractButton::toggled, this, [&downloads](bool on) { downloads.set(on); });
    // The manager hands them on to the updater.
    checks.observe(this, [this] { followPreferences(); });
    downloads.observe(this, [this] { followPreferences(); });
    connect(checkButton, &QAbstractButton::clicked, this, [this] { updaterManager.checkForUpdates(); });
    connect(&updaterManager, &SparkleUpdaterManager::changed, this, &UpdateSettingsView::followManager);
}

void UpdateSettingsView::build() {
    checkSwitch = new Switch(QStringLiteral("Automatically check for updates"));
    downloadSwitch = new Switch(QStringLiteral("Automatically download updates"));
    downloadRow = switchRow(downloadSwitch, QStringLiteral("Download updates in the background when available"));
    downloadRow->layout()->setContentsMargins(0, rowGap, 0, 0); // goes with the row
    checkButton = new Button(QStringLiteral("Check for Updates Now"));
    spinner = new BusyIndicator(QStringLiteral("Checking for updates"), nullptr,
                                qRound(BusyIndicator::usualDiameter * spinnerScale));
    availableLabel = new Label(QStringLiteral("Update Available!"), TextStyle::subheadline, ColorRole::green);
    auto* now = new QHBoxLayout;
    now->setSpacing(12);
    now->addWidget(checkButton);
    now->addWidget(spinner);
    now->addWidget(availableLabel, 1);
    now->addStretch();

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(new Label(QStringLiteral("Updates"), TextStyle::headline));
    column->addSpacing(12);
    column->addWidget(switchRow(checkSwitch, QStringLiteral("Check for updates automatically when the app starts")));
    column->addWidget(downloadRow);
    column->addSpacing(14);
    column->addWidget(new Divider);
    column->addSpacing(14);
    column->addLayout(now);
    column->addStretch();
}

QWidget* UpdateSettingsView::switchRow(Switch* toggle, const QString& toolTip) {
    auto* row = new QWidget;
    row->setToolTip(toolTip);
    toggle->setToolTip(toolTip);
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(12);
    auto* label = new Label(toggle->accessibleName());
    label->setMaximumLines(0);
    layout->addWidget(label, 1);
    layout->addWidget(toggle);
    return row;
}

void UpdateSettingsView::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (event->spontaneous())
        return;
    // The updater has the last word: a launch turns checks on again, and the preference follows.
    Updater& updater = updaterManager.updaterController.updater();
    const bool downloads = updater.automaticallyDownloadsUpdates();
    automaticallyCheckForUpdatesPreference().set(updater.automaticallyChecksForUpdates());
    automaticallyDownloadUpdatesPreference().set(downloads);
}

void UpdateSettingsView::followPreferences() {
    const bool checks = automaticallyCheckForUpdatesPreference().value();
    checkSwitch->setChecked(checks);
    downloadSwitch->setChecked(automaticallyDownloadUpdatesPreference().value());
    downloadRow->setVisible(checks);
}

void UpdateSettingsView::followManager() {
    checkButton->setEnabled(!updaterManager.isCheckingForUpdates() && !updaterManager.updateInProgress());
    spinner->setVisible(updaterManager.isCheckingForUpdates());
    availableLabel->setVisible(updaterManager.updateAvailable());
}

} // namespace Quillstacks
