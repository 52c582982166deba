#include "interface/OverlayScrollBar.h"

#include "foundation/MainQueue.h"
#include "interface/Drawing.h"
#include "interface/Theme.h"

#include <QAbstractScrollArea>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>

namespace Quillstacks {
namespace {

constexpr int thumbWidth = 5;
constexpr int fromEdge = 4;
constexpr int shortestThumb = 28;
constexpr double shownFor = 0.9; ///< seconds after the last scrolling

} // namespace

void OverlayScrollBar::install(QAbstractScrollArea* area, bool horizontal) {
    area->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    new OverlayScrollBar(area, Qt::Vertical);
    if (horizontal)
        installHorizontal(area);
}

void OverlayScrollBar::installHorizontal(QAbstractScrollArea* area) {
    new OverlayScrollBar(area, Qt::Horizontal);
}

OverlayScrollBar::OverlayScrollBar(QAbstractScrollArea* scrolled, Qt::Orientation direction)
    : QWidget(scrolled), area(scrolled),
      bar(direction == Qt::Vertical ? scrolled->verticalScrollBar() : scrolled->horizontalScrollBar()),
      orientation(direction), shown(this) {
    area->installEventFilter(this);
    connect(bar, &QScrollBar::valueChanged, this, &OverlayScrollBar::flash);
    connect(bar, &QScrollBar::rangeChanged, this, &OverlayScrollBar::place);
    connect(&Theme::shared(), &Theme::changed, this, qOverload<>(&QWidget::update));
    place();
}

void OverlayScrollBar::place() {
    const int thickness = thumbWidth + 2 * fromEdge;
    if (orientation == Qt::Vertical)
        setGeometry(area->width() - thickness, 0, thickness, area->height());
    else
        setGeometry(0, area->height() - thickness, area->width(), thickness);
    setVisible(bar->maximum() > bar->minimum());
    raise();
    update();
}

void OverlayScrollBar::flash() {
    const int flashNumber = ++flashes;
    shown.to(1);
    update();
    MainQueue::after(shownFor, this, [this, flashNumber] {
        if (flashNumber == flashes)
            settle();
    });
}

void OverlayScrollBar::settle() {
    if (!underMouse() && grabbedAt < 0)
        shown.to(0);
}

int OverlayScrollBar::along(const QPoint& position) const {
    return orientation == Qt::Vertical ? position.y() : position.x();
}

QRectF OverlayScrollBar::thumb() const {
    const qreal track = (orientation == Qt::Vertical ? height() : width()) - 2.0 * fromEdge;
    const qreal range = bar->maximum() - bar->minimum();
    const qreal length =
        std::min(track, std::max<qreal>(shortestThumb, track * bar->pageStep() / (range + bar->pageStep())));
    const qreal start = fromEdge + (range > 0 ? (track - length) * (bar->value() - bar->minimum()) / range : 0);
    if (orientation == Qt::Vertical)
        return {static_cast<qreal>(fromEdge), start, static_cast<qreal>(thumbWidth), length};
    return {start, static_cast<qreal>(fromEdge), length, static_cast<qreal>(thumbWidth)};
}

void OverlayScrollBar::paintEvent(QPaintEvent*) {
    if (shown.value() <= 0)
        return;
    QPainter painter(this);
    painter.setOpacity(shown.value());
    fillRounded(painter, thumb(), 3, Theme::shared().color(ColorRole::scrollThumb));
}

void OverlayScrollBar::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    const int at = along(event->position().toPoint());
    const QRectF place = thumb();
    const qreal start = orientation == Qt::Vertical ? place.top() : place.left();
    const qreal end = orientation == Qt::Vertical ? place.bottom() : place.right();
    if (at < start)
        bar->triggerAction(QScrollBar::SliderPageStepSub);
    else if (at > end)
        bar->triggerAction(QScrollBar::SliderPageStepAdd);
    grabbedAt = at;
    grabbedValue = bar->value();
}

void OverlayScrollBar::mouseMoveEvent(QMouseEvent* event) {
    if (grabbedAt < 0)
        return;
    const QRectF place = thumb();
    const bool vertical = orientation == Qt::Vertical;
    const qreal room = (vertical ? height() - place.height() : width() - place.width()) - 2 * fromEdge;
    const qreal moved = along(event->position().toPoint()) - grabbedAt;
    if (room > 0)
        bar->setValue(grabbedValue + qRound(moved * (bar->maximum() - bar->minimum()) / room));
}

void OverlayScrollBar::mouseReleaseEvent(QMouseEvent*) {
    grabbedAt = -1;
    settle();
}

void OverlayScrollBar::enterEvent(QEnterEvent*) {
    shown.to(1);
}

void OverlayScrollBar::leaveEvent(QEvent*) {
    if (grabbedAt < 0)
        shown.to(0);
}

bool OverlayScrollBar::eventFilter(QObject* watched, QEvent* event) {
    if (watched == area && (event->type() == QEvent::Resize || event->type() == QEvent::Show))
        place();
    return false;
}

} // namespace Quillstacks
