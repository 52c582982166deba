#pragma once

#include <QWidget>

namespace Quillstacks {

/// Where the log is, for who has to send it to somebody.
class DebugLogsSettingsView final : public QWidget {
    Q_OBJECT
public:
    explicit DebugLogsSettingsView(QWidget* parent = nullptr);

Q_SIGNALS:
    void logExportHelpRequested();
};

} // namespace Quillstacks
