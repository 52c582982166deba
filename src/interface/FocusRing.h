#pragma once

#include <QPointer>
#include <QWidget>

namespace Quillstacks {

/// The ring round a control that has the keyboard: 2 px of accent, 2 px outside the control's edge. It shows when the
/// focus came by key, and lies above the control's neighbours.
class FocusRing final : public QWidget {
    Q_OBJECT
public:
    /// Shows a ring round `control` whenever it has keyboard focus. `radius` is that of the control.
    static void attach(QWidget* control, qreal radius);
    /// Whether the focus that `control` has came by key, so that a ring is shown.
    [[nodiscard]] static bool isShownFor(const QWidget* control);

protected:
    void paintEvent(QPaintEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    friend class FocusRingWatcher;
    explicit FocusRing(QWidget* control, qreal radius);
    void follow();

    QPointer<QWidget> control;
    qreal radius;
};

} // namespace Quillstacks
