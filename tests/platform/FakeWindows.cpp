#include "platform/Windows.h"

#include "platform/FakeDesktop.h"

#include <QGuiApplication>
#include <QScreen>

namespace Quillstacks {

void FakeDesktop::setComposited(bool now) {
    if (composited == now)
        return;
    composited = now;
    const auto observers = compositedObservers;
    for (const CompositedObserver& observer : observers)
        if (observer.context)
            observer.changed();
}

namespace Windows {

namespace {

void noteWindow(const char* call, const QWidget* window) {
    FakeDesktop::shared().note(QString::fromLatin1(call) + QLatin1Char(' ') + window->objectName());
}

} // namespace

void preparePanel(QWidget* panel) {
    noteWindow("preparePanel", panel);
    FakeDesktop::shared().panels.emplace_back(panel);
}

void setFirstPicture(QWidget* panel, const QImage& picture) {
    FakeDesktop::shared().firstPictures[panel] = picture;
}

void clearFirstPicture(QWidget* panel) {
    FakeDesktop::shared().firstPictures.erase(panel);
}

void showAndActivate(QWidget* window, quint32 eventTime) {
    noteWindow("showAndActivate", window);
    FakeDesktop::shared().lastActivated = window;
    FakeDesktop::shared().calls.last() += QStringLiteral(" %1").arg(eventTime);
    window->show();
    window->raise();
    window->activateWindow();
}

void activateIgnoringOtherApps(QWidget* window) {
    noteWindow("activateIgnoringOtherApps", window);
    FakeDesktop::shared().lastActivated = window;
    window->raise();
    window->activateWindow();
}

void setSkipTaskbar(QWidget* window, bool skip) {
    noteWindow(skip ? "skipTaskbar" : "showInTaskbar", window);
    FakeDesktop::shared().skipsTaskbar[window] = skip;
}

bool isComposited() {
    return FakeDesktop::shared().composited;
}

void observeComposited(QObject* context, std::function<void()> changed) {
    FakeDesktop::shared().compositedObservers.push_back({context, std::move(changed)});
}

void setBlurBehind(QWidget* window, const QRect& area, int /*radius*/) {
    FakeDesktop::shared().blurred[window] = area;
}

QPoint mouseLocation() {
    return FakeDesktop::shared().mouse;
}

QScreen* screenAt(const QPoint& point) {
    if (FakeDesktop::shared().screenFor)
        return FakeDesktop::shared().screenFor(point);
    const auto screens = QGuiApplication::screens();
    const auto found =
        std::ranges::find_if(screens, [&point](const QScreen* screen) { return screen->geometry().contains(point); });
    return found == screens.end() ? nullptr : *found;
}

} // namespace Windows
} // namespace Quillstacks
