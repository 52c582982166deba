#pragma once

#include <QWidget>

namespace Quillstacks {

class Label;
class Stepper;

/// The settings of the version history: how many versions are kept of one prompt. Written the moment it changes.
class VersionHistorySettingsView final : public QWidget {
    Q_OBJECT
public:
    explicit VersionHistorySettingsView(QWidget* parent = nullptr);

private:
    void refresh();

    Label* stepperLabel;
    Stepper* stepper;
};

} // namespace Quillstacks
