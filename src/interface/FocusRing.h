#pragma once

#include <QPointer>
#include <QWidget>

namespace Quillstacks {

/// The ring round a control that has the keyboard: 2 px of accent, 2 px outside the control's edge. It shows when the
/// focus came by key, and lies above the control's neighbours.
class FocusRing final : public QWidget {
    Q_OBJECT
public:
    enum class Manner {
        control, ///< when the focus came by key, with a gap
        field    ///< whenever it has the focus, in place of its edge
    };
    /// Shows a ring round `control` whenever it has the keyboard. `radius` is that of the control.
    static void attach(QWidget* control, qreal radius, Manner manner = Manner::control);
    /// Whether a ring is shown round it now.
    [[nodiscard]] static bool isShownFor(const QWidget* control);

protected:
    void paintEvent(QPaintEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    friend class FocusRingWatcher;
    FocusRing(QWidget* control, qreal radius, Manner manner);
    static QWidget* ground(const QWidget* control);
    void follow();

    QPointer<QWidget> control;
    qreal radius;
    qreal gap;
};

} // namespace Quillstacks
