#pragma once

#include "SettingsColumn.h"

namespace Quillstacks {

/// What most people look for in the settings.
class GeneralSettingsTab final : public SettingsColumn {
    Q_OBJECT
public:
    explicit GeneralSettingsTab(QWidget* parent = nullptr);
};

} // namespace Quillstacks
