#pragma once

#include <QObject>

class QWidget;

namespace Quillstacks::X11 {

/// Says of a panel, each time it is about to be mapped, that it stands on every workspace, and once it is, that it has
/// no entry in taskbar and pager. Window managers forget both when a window is hidden. Owned by the panel.
class PanelHints final : public QObject {
    Q_OBJECT
public:
    explicit PanelHints(QWidget* panel);
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void tellOnceShown();

    QWidget* panel = nullptr;
};

} // namespace Quillstacks::X11
