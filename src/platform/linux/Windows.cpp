#include "platform/Windows.h"

#include "x11/Connection.h"
#include "x11/FirstPicture.h"
#include "x11/PanelHints.h"
#include "x11/SelectionWatch.h"

#include <QApplication>
#include <QCursor>
#include <QPainterPath>
#include <QPointer>
#include <QRegion>
#include <QScreen>
#include <QWidget>
#include <QWindow>

#include <algorithm>
#include <utility>
#include <vector>

namespace Quillstacks::Windows {

namespace {

/// Who asks for a window's activation: 2 stands for a pager or another direct wish of the user. Window managers that
/// guard the focus refuse it to ordinary programs (1).
constexpr uint32_t sourceUser = 2;
constexpr uint32_t stateRemove = 0;
constexpr uint32_t stateAdd = 1;

X11::SelectionWatch* compositorWatch() {
    static QPointer<X11::SelectionWatch> watch;
    if (!watch && X11::connection())
        watch = new X11::SelectionWatch("_NET_WM_CM_S0", QCoreApplication::instance());
    return watch;
}

void sendActivate(xcb_window_t window, quint32 time) {
    xcb_client_message_data_t data{};
    data.data32[0] = sourceUser;
    data.data32[1] = time;
    X11::sendToWindowManager(window, "_NET_ACTIVE_WINDOW", data);
}

/// The toolkit takes 0.4 s to believe that a hidden window has lost the focus. Shown again within that time, the window
/// gets it back and nobody tells its widgets, which would take no keys.
bool isFocusedWhileHidden(const QWidget* window) {
    return !window->isVisible() && window->windowHandle() && QGuiApplication::focusWindow() == window->windowHandle();
}

} // namespace

void preparePanel(QWidget* panel) {
    if (!X11::connection())
        return;
    new X11::PanelHints(panel);
    new X11::FirstPicture(panel);
}

void setFirstPicture(QWidget* panel, const QImage& picture) {
    if (auto* first = X11::FirstPicture::of(panel))
        first->set(picture);
}

void clearFirstPicture(QWidget* panel) {
    if (auto* first = X11::FirstPicture::of(panel))
        first->clear();
}

void showAndActivate(QWidget* window, quint32 eventTime) {
    const bool isStale = isFocusedWhileHidden(window);
    window->show();
    window->raise();
    window->activateWindow();
    if (isStale)
        QApplication::setActiveWindow(window);
    // The time of the user's action in the window's own hints needs no help: the toolkit writes the newest that it has
    // seen, the press of the hot key included.
    if (X11::connection())
        sendActivate(X11::nativeWindow(window), eventTime);
}

void activateIgnoringOtherApps(QWidget* window) {
    window->raise();
    window->activateWindow();
    if (X11::connection() && window->isVisible())
        sendActivate(X11::nativeWindow(window), XCB_CURRENT_TIME);
}

void setSkipTaskbar(QWidget* window, bool skip) {
    if (!X11::connection())
        return;
    xcb_client_message_data_t data{};
    data.data32[0] = skip ? stateAdd : stateRemove;
    data.data32[1] = X11::atom("_NET_WM_STATE_SKIP_TASKBAR");
    data.data32[2] = X11::atom("_NET_WM_STATE_SKIP_PAGER");
    data.data32[3] = sourceUser;
    X11::sendToWindowManager(X11::nativeWindow(window), "_NET_WM_STATE", data);
}

bool isComposited() {
    if (auto* watch = compositorWatch())
        return watch->isOwned();
    // Wayland always composites; a surface that is never shown may as well be translucent.
    return true;
}

void observeComposited(QObject* context, std::function<void()> changed) {
    if (auto* watch = compositorWatch())
        QObject::connect(watch, &X11::SelectionWatch::changed, context, std::move(changed));
}

void setBlurBehind(QWidget* window, const QRect& area, int radius) {
    if (!X11::connection())
        return;
    QPainterPath path;
    path.addRoundedRect(area, radius, radius);
    const qreal ratio = window->devicePixelRatioF();
    const QRegion region(path.toFillPolygon(QTransform::fromScale(ratio, ratio)).toPolygon());
    std::vector<uint32_t> values;
    for (const QRect& part : region)
        for (const int value : {part.x(), part.y(), part.width(), part.height()})
            values.push_back(static_cast<uint32_t>(value));
    X11::setCardinals(X11::nativeWindow(window), "_KDE_NET_WM_BLUR_BEHIND_REGION", values.data(),
                      static_cast<uint32_t>(values.size()));
}

QPoint mouseLocation() {
    return QCursor::pos();
}

QScreen* screenAt(const QPoint& point) {
    const auto screens = QGuiApplication::screens();
    const auto found =
        std::ranges::find_if(screens, [&point](const QScreen* screen) { return screen->geometry().contains(point); });
    return found == screens.end() ? nullptr : *found;
}

} // namespace Quillstacks::Windows
