#include "shell/ScreenFit.h"

#include <QEvent>
#include <QScreen>
#include <QWidget>
#include <QWindow>

namespace Quillstacks {

ScreenFit::ScreenFit(QWidget* fitted, const QSize& smallestSize)
    : QObject(fitted), window(fitted), smallest(smallestSize) {
    window->installEventFilter(this);
}

void ScreenFit::fit() {
    limit();
    shrink();
}

void ScreenFit::limit() {
    window->setMinimumSize(smallest.boundedTo(room()));
}

void ScreenFit::shrink() {
    // The window manager keeps those that fill the screen in step; a size of one's own would end that state.
    if (!(window->windowState() & (Qt::WindowMaximized | Qt::WindowFullScreen)))
        window->resize(window->size().boundedTo(room()));
}

QSize ScreenFit::room() const {
    const QMargins frame = window->windowHandle() ? window->windowHandle()->frameMargins() : QMargins();
    return window->screen()->availableGeometry().marginsRemoved(frame).size();
}

void ScreenFit::follow(QScreen* screen) {
    disconnect(followed);
    if (!screen)
        return;
    followed = connect(screen, &QScreen::availableGeometryChanged, this, &ScreenFit::fit);
    limit();
}

bool ScreenFit::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::WinIdChange && window->windowHandle()) {
        isFrameKnown = false;
        connect(window->windowHandle(), &QWindow::screenChanged, this, &ScreenFit::follow, Qt::UniqueConnection);
        follow(window->windowHandle()->screen());
    }
    // The window manager puts its frame around a window only when it shows, and moves it in doing so.
    if (event->type() == QEvent::Move && !isFrameKnown && window->windowHandle() &&
        !window->windowHandle()->frameMargins().isNull()) {
        isFrameKnown = true;
        fit();
    }
    return QObject::eventFilter(watched, event);
}

} // namespace Quillstacks
