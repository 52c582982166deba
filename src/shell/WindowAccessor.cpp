#include "shell/WindowAccessor.h"

#include <QShowEvent>

namespace Quillstacks {

WindowAccessor::WindowAccessor(std::function<void(QWidget* window)> resolved, QWidget* parent)
    : QWidget(parent), onResolve(std::move(resolved)) {
    setObjectName(QStringLiteral("WindowAccessor"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFixedSize(0, 0);
    lower();
}

void WindowAccessor::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    // A child is shown when its window has a native one, and not before; coming back from the taskbar tells nothing
    // new.
    if (!event->spontaneous() && window() != this && onResolve)
        onResolve(window());
}

} // namespace Quillstacks
