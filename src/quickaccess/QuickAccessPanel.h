#pragma once

#include <QPoint>
#include <QWidget>

#include <optional>

namespace Quillstacks {

class QuickAccessView;

/// The floating window of quick access: without a frame, on every workspace, above everything, and moved by its
/// background. It shows one view at a time, which fills it and draws its own shadow.
class QuickAccessPanel final : public QWidget {
    Q_OBJECT
public:
    QuickAccessPanel();
    ~QuickAccessPanel() override;

    /// Takes the view over and lets go of the one before.
    void setRootView(QuickAccessView* view);
    [[nodiscard]] QuickAccessView* rootView() const { return root; }
    /// Whether the panel was the active window at some time since it was last shown.
    [[nodiscard]] bool wasActive() const { return active; }

Q_SIGNALS:
    void closed();
    void resized();

protected:
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    QuickAccessView* root = nullptr;
    bool active = false;
    std::optional<QPoint> grip; ///< where a drag by the background began, in the panel's coordinates
};

} // namespace Quillstacks
