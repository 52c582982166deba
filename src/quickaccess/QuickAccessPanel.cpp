#include "QuickAccessPanel.h"

#include "QuickAccessView.h"

#include "platform/Windows.h"

#include <QApplication>
#include <QMouseEvent>
#include <QWindow>

namespace Quillstacks {

QuickAccessPanel::QuickAccessPanel()
    : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint | Qt::NoDropShadowWindowHint) {
    setObjectName(QStringLiteral("quick-access"));
    setWindowTitle(QStringLiteral("Quick access"));
    setWindowRole(QStringLiteral("quick-access"));
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_QuitOnClose, false);
    Windows::preparePanel(this);
}

QuickAccessPanel::~QuickAccessPanel() = default;

void QuickAccessPanel::setRootView(QuickAccessView* view) {
    if (root == view)
        return;
    delete root;
    root = view;
    if (!root)
        return;
    root->setParent(this);
    root->setGeometry(rect());
    root->show();
}

bool QuickAccessPanel::event(QEvent* event) {
    if (event->type() == QEvent::WindowActivate)
        active = true;
    return QWidget::event(event);
}

void QuickAccessPanel::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (root)
        root->setGeometry(rect());
    Q_EMIT resized();
}

void QuickAccessPanel::showEvent(QShowEvent* event) {
    active = isActiveWindow();
    QWidget::showEvent(event);
}

void QuickAccessPanel::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    grip.reset();
    Q_EMIT closed();
}

void QuickAccessPanel::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        grip = event->position().toPoint();
}

void QuickAccessPanel::mouseMoveEvent(QMouseEvent* event) {
    if (!grip || (event->buttons() & Qt::LeftButton) == 0)
        return;
    // On Wayland only the compositor can move a window. Elsewhere it is done here: a window manager that does it takes
    // the keyboard meanwhile, and a panel of a program that isn't active goes away.
    if (!QGuiApplication::platformName().startsWith(QLatin1String("wayland")))
        move(event->globalPosition().toPoint() - *grip);
    else if (windowHandle() && windowHandle()->startSystemMove())
        grip.reset();
}

void QuickAccessPanel::mouseReleaseEvent(QMouseEvent*) {
    grip.reset();
}

} // namespace Quillstacks
