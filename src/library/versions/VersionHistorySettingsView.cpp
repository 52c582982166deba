#include "library/versions/VersionHistorySettingsView.h"

#include "interface/Label.h"
#include "interface/Stepper.h"
#include "library/versions/VersionPreferences.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace Quillstacks {
namespace {

constexpr qint64 leastVersions = 10;
constexpr qint64 mostVersions = 200;
constexpr qint64 versionStep = 10;
constexpr int spacing = 12;

} // namespace

VersionHistorySettingsView::VersionHistorySettingsView(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("VersionHistorySettingsView"));
    stepperLabel = new Label;
    stepper = new Stepper({}, leastVersions, mostVersions, versionStep);
    auto* row = new QHBoxLayout;
    row->addWidget(stepperLabel, 1);
    row->addWidget(stepper);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(spacing);
    column->addWidget(new Label(QStringLiteral("Version History"), TextStyle::headline));
    column->addWidget(new Label(QStringLiteral("Maximum number of versions to keep per prompt."),
                                TextStyle::subheadline, ColorRole::text2));
    column->addLayout(row);
    connect(stepper, &Stepper::valueChanged, this, [](qint64 value) { versionHistoryLimitPreference().set(value); });
    versionHistoryLimitPreference().observe(this, [this] { refresh(); });
    refresh();
}

void VersionHistorySettingsView::refresh() {
    const qint64 limit = versionHistoryLimitPreference().value();
    const QString text = QStringLiteral("Keep last %1 versions").arg(limit);
    stepperLabel->setText(text);
    stepper->setAccessibleName(text);
    stepper->setValue(limit);
}

} // namespace Quillstacks
