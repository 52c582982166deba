#pragma once

#include <QWidget>

namespace Quillstacks {

class BusyIndicator;
class Button;
class Label;
class SparkleUpdaterManager;
class Switch;

/// The settings card of the updates: whether to look for them and to download them without being asked, and a look
/// right now. The switches follow the two preferences, and so does the updater.
class UpdateSettingsView final : public QWidget {
    Q_OBJECT
public:
    explicit UpdateSettingsView(SparkleUpdaterManager& updaterManager, QWidget* parent = nullptr);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void build();
    [[nodiscard]] QWidget* switchRow(Switch* toggle, const QString& toolTip);
    void followPreferences();
    void followManager();

    SparkleUpdaterManager& updaterManager;
    Switch* checkSwitch = nullptr;
    Switch* downloadSwitch = nullptr;
    QWidget* downloadRow = nullptr;
    Button* checkButton = nullptr;
    BusyIndicator* spinner = nullptr;
    Label* availableLabel = nullptr;
};

} // namespace Quillstacks
