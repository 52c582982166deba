#pragma once

#include <QRect>
#include <QtGlobal>

#include <functional>

class QImage;
class QObject;
class QScreen;
class QWidget;

/// What windows need of the window system beyond the toolkit.
namespace Quillstacks::Windows {

/// Call once for a panel's window before its first show: it stands on every workspace, above full-screen windows too.
void preparePanel(QWidget* panel);
/// What a prepared panel that is hidden shows from its mapping until it has drawn itself, where the window system can
/// do that: premultiplied, and as large as the panel in pixels. It stays with the panel's native window.
void setFirstPicture(QWidget* panel, const QImage& picture);
/// Takes it back: it is no longer how the panel will look.
void clearFirstPicture(QWidget* panel);
/// Shows, raises and focuses a window for a key press or a command of the user, also against a window manager's
/// focus-stealing prevention. `eventTime` is the time of the key press; 0 when there is none.
void showAndActivate(QWidget* window, quint32 eventTime);
/// Brings the program's windows to the front ("activate, ignoring other applications").
void activateIgnoringOtherApps(QWidget* window);
/// A window without an entry in taskbar and pager, or with one. To be said again after every show.
void setSkipTaskbar(QWidget* window, bool skip);

/// Whether translucent windows are composited. Without, they must be drawn opaque.
[[nodiscard]] bool isComposited();
/// Calls back when isComposited() changes.
void observeComposited(QObject* context, std::function<void()> changed);
/// Asks the window manager to blur what lies behind this rounded rectangle (in the widget's coordinates), where it can.
void setBlurBehind(QWidget* window, const QRect& area, int radius);

/// The pointer in global coordinates.
[[nodiscard]] QPoint mouseLocation();
/// The first screen, in the system's order, whose frame contains the point; nullptr when none does.
[[nodiscard]] QScreen* screenAt(const QPoint& point);

} // namespace Quillstacks::Windows
