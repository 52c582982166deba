#include "interface/ScrollArea.h"

#include "interface/EdgeFade.h"
#include "interface/OverlayScrollBar.h"

#include <QApplication>
#include <QKeyEvent>
#include <QScrollBar>

#include <algorithm>

namespace Quillstacks {
namespace {

/// Content whose height depends on its width is as high as it needs at this one. What it calls its smallest height
/// counts each text as broken at some comfortable width, and would leave a gap at the end.
void fitHeight(const QScrollArea& area) {
    QWidget* content = area.widget();
    if (!content || !area.widgetResizable() || !content->hasHeightForWidth())
        return;
    const int width = std::max(area.viewport()->width(), content->minimumSizeHint().width());
    content->setMinimumHeight(std::max(1, content->heightForWidth(width)));
}

/// Scrolls until there is so much room above and below; ensureWidgetVisible() is content with what lies within the
/// view, also beneath a fade.
void showWith(QScrollArea& area, const QWidget& descendant, int margin) {
    const QRect place(descendant.mapTo(area.widget(), QPoint()), descendant.size());
    area.ensureVisible(place.left(), place.bottom() + 1, 0, margin);
    area.ensureVisible(place.left(), place.top(), 0, margin); // which counts more where there is no room for both
}

} // namespace

ScrollArea::ScrollArea(QWidget* parent) : QScrollArea(parent) {
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setFocusPolicy(Qt::NoFocus);
    viewport()->setAutoFillBackground(false);
    setAutoFillBackground(false);
    QPalette clear = palette();
    clear.setColor(QPalette::Window, Qt::transparent);
    viewport()->setPalette(clear);
    OverlayScrollBar::install(this);
    verticalScrollBar()->setSingleStep(24);
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, &ScrollArea::placeFades);
    connect(verticalScrollBar(), &QScrollBar::rangeChanged, this, &ScrollArea::placeFades);
}

void ScrollArea::setContent(QWidget* content) {
    setWidget(content);
    // QScrollArea makes its widget fill its background.
    content->setAutoFillBackground(false);
    content->installEventFilter(this);
}

void ScrollArea::setBottomFade(std::optional<ColorRole> role, int height) {
    delete bottomFade;
    bottomFade = role ? new EdgeFade(*role, this) : nullptr;
    bottomFadeHeight = height;
    placeFades();
}

void ScrollArea::setTopFade(std::optional<ColorRole> role, int height) {
    delete topFade;
    topFade = role ? new EdgeFade(*role, this, EdgeFade::Edge::top) : nullptr;
    topFadeHeight = height;
    placeFades();
}

void ScrollArea::placeFades() {
    const QScrollBar* bar = verticalScrollBar();
    if (bottomFade) {
        bottomFade->setGeometry(0, height() - bottomFadeHeight, width(), bottomFadeHeight);
        bottomFade->setVisible(bar->value() < bar->maximum());
        bottomFade->raise();
    }
    if (topFade) {
        topFade->setGeometry(0, 0, width(), topFadeHeight);
        topFade->setVisible(bar->value() > bar->minimum());
        topFade->raise();
    }
}

QSize ScrollArea::sizeHint() const {
    if (!widget())
        return QScrollArea::sizeHint();
    QSize hint = widget()->sizeHint();
    if (widget()->hasHeightForWidth() && width() > 0)
        hint.setHeight(widget()->heightForWidth(width()));
    return hint.expandedTo(widget()->minimumSize());
}

QSize ScrollArea::minimumSizeHint() const {
    return {widget() ? widget()->minimumSizeHint().width() : 0, 40};
}

void ScrollArea::keyPressEvent(QKeyEvent* event) {
    QScrollBar* bar = verticalScrollBar();
    switch (event->key()) {
    case Qt::Key_Home:
        bar->setValue(bar->minimum());
        break;
    case Qt::Key_End:
        bar->setValue(bar->maximum());
        break;
    case Qt::Key_PageUp:
        bar->triggerAction(QScrollBar::SliderPageStepSub);
        break;
    case Qt::Key_PageDown:
        bar->triggerAction(QScrollBar::SliderPageStepAdd);
        break;
    default:
        QScrollArea::keyPressEvent(event);
    }
}

void ScrollArea::resizeEvent(QResizeEvent* event) {
    fitHeight(*this);
    QScrollArea::resizeEvent(event);
    placeFades();
}

bool ScrollArea::eventFilter(QObject* watched, QEvent* event) {
    if (watched == widget() && event->type() == QEvent::LayoutRequest) {
        fitHeight(*this);
        updateGeometry();
    }
    return QScrollArea::eventFilter(watched, event);
}

bool ScrollArea::focusNextPrevChild(bool next) {
    // QScrollArea scrolls to what gets the focus, wherever the chain leads.
    const bool moved = QScrollArea::focusNextPrevChild(next);
    QWidget* focused = QApplication::focusWidget();
    if (moved && focused && widget() && widget()->isAncestorOf(focused))
        showWith(*this, *focused, std::max({20, bottomFadeHeight, topFadeHeight}));
    return moved;
}

} // namespace Quillstacks
