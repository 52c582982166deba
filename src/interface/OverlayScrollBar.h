#pragma once

#include "interface/Transition.h"

#include <QWidget>

class QAbstractScrollArea;
class QScrollBar;

namespace Quillstacks {

/// The thin thumb that lies over what scrolls: 5 px wide, 4 from the edge, shown while scrolling or hovered. It stands
/// for one of the area's own scroll bars, which is kept out of sight and goes on holding the position.
class OverlayScrollBar final : public QWidget {
    Q_OBJECT
public:
    /// Puts one at the right edge of the area and, if `horizontal`, one at its bottom.
    static void install(QAbstractScrollArea* area, bool horizontal = false);
    /// The one at the bottom alone, for an area that has the other already.
    static void installHorizontal(QAbstractScrollArea* area);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    OverlayScrollBar(QAbstractScrollArea* area, Qt::Orientation orientation);
    void place();
    void flash();
    void settle();
    [[nodiscard]] QRectF thumb() const;
    [[nodiscard]] int along(const QPoint& position) const;

    QAbstractScrollArea* area;
    QScrollBar* bar;
    Qt::Orientation orientation;
    Transition shown;
    int flashes = 0; ///< so that only the last flash's end hides it
    int grabbedAt = -1;
    int grabbedValue = 0;
};

} // namespace Quillstacks
