#pragma once

#include <QWidget>

namespace Quillstacks {

class SegmentedPicker;

/// The choice of the colour scheme. It applies at once, to every open window.
class AppearanceSettingsView final : public QWidget {
    Q_OBJECT
public:
    explicit AppearanceSettingsView(QWidget* parent = nullptr);

private:
    void showMode();

    SegmentedPicker* picker = nullptr;
};

} // namespace Quillstacks
