#pragma once

#include <QWidget>

namespace Quillstacks {

/// The switch that gives the prompt editor its analysis panel.
class LexiwellSettingsView final : public QWidget {
    Q_OBJECT
public:
    explicit LexiwellSettingsView(QWidget* parent = nullptr);
};

} // namespace Quillstacks
