#pragma once

#include "SettingsColumn.h"

namespace Quillstacks {

/// What few people change, and what keeps the library and the program in order.
class AdvancedSettingsTab final : public SettingsColumn {
    Q_OBJECT
public:
    explicit AdvancedSettingsTab(QWidget* parent = nullptr);

Q_SIGNALS:
    void logExportHelpRequested();
};

} // namespace Quillstacks
