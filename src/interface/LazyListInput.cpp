// What pointer and keys do in a list.
#include "interface/LazyList.h"

#include <QCursor>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>

#include <utility>

namespace Quillstacks {

bool LazyList::viewportEvent(QEvent* event) {
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
        handleMouse(static_cast<QMouseEvent*>(event));
        return true;
    case QEvent::MouseMove:
    case QEvent::Enter:
        updateHover();
        break;
    case QEvent::Leave:
        setHovered(-1);
        break;
    case QEvent::Wheel:
        animation.stop();
        break;
    case QEvent::ContextMenu: {
        const auto* menu = static_cast<QContextMenuEvent*>(event);
        const bool byKey = menu->reason() == QContextMenuEvent::Keyboard;
        Q_EMIT contextMenuRequested(byKey ? -1 : indexAt(menu->pos()), menu->globalPos());
        event->accept();
        return true;
    }
    default:
        break;
    }
    return QAbstractScrollArea::viewportEvent(event);
}

void LazyList::handleMouse(QMouseEvent* event) {
    event->accept();
    const int index = indexAt(event->position().toPoint());
    if (event->button() != Qt::LeftButton)
        return;
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        pressedIndex = index;
        Q_EMIT pressed(index, event->modifiers());
        break;
    case QEvent::MouseButtonDblClick:
        // The second press of the two counts as a press and a click as well.
        pressedIndex = index;
        if (index >= 0)
            Q_EMIT doubleClicked(index);
        break;
    default:
        if (index >= 0 && std::exchange(pressedIndex, -1) == index)
            Q_EMIT clicked(index, event->modifiers());
    }
}

void LazyList::updateHover() {
    const bool inside = viewport()->underMouse() && viewport()->isVisible();
    setHovered(inside ? indexAt(viewport()->mapFromGlobal(QCursor::pos())) : -1);
}

void LazyList::setHovered(int index) {
    const bool same = index == hovered;
    if (!same && source.hover)
        if (QWidget* before = row(hovered))
            source.hover(before, false);
    hovered = index;
    // Also when the index is the same: another widget may stand for it by now.
    if (source.hover)
        if (QWidget* now = row(index))
            source.hover(now, true);
    if (!same)
        Q_EMIT hoveredIndexChanged(index);
}

void LazyList::keyPressEvent(QKeyEvent* event) {
    if (keyHandler && keyHandler(event)) {
        event->accept();
        return;
    }
    switch (event->key()) {
    case Qt::Key_PageUp:
        scrollTo(verticalScrollBar()->value() - viewport()->height(), false);
        break;
    case Qt::Key_PageDown:
        scrollTo(verticalScrollBar()->value() + viewport()->height(), false);
        break;
    case Qt::Key_Home:
        scrollTo(0, false);
        break;
    case Qt::Key_End:
        scrollTo(verticalScrollBar()->maximum(), false);
        break;
    default:
        event->ignore();
    }
}

bool LazyList::eventFilter(QObject* watched, QEvent* event) {
    // Rows cover the viewport, so the pointer's comings and goings are theirs.
    if (watched->parent() == viewport() && (event->type() == QEvent::Enter || event->type() == QEvent::Leave))
        updateHover();
    return QAbstractScrollArea::eventFilter(watched, event);
}

} // namespace Quillstacks
