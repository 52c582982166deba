#pragma once

#include <QObject>
#include <QString>

class QDBusPendingCallWatcher;

namespace Quillstacks {

namespace X11 {
class SelectionWatch;
}

/// Knows whether something shows status icons: a StatusNotifierItem host on the session bus, or on X11 a tray of the
/// older kind. It asks without help of the toolkit, which decides between the two once per process at the first
/// question put to it, and would then stay without a tray for good.
class TrayHostWatch final : public QObject {
    Q_OBJECT
public:
    explicit TrayHostWatch(QObject* parent = nullptr);

Q_SIGNALS:
    /// After the first look, a turn of the main loop later at the least, and after every change.
    void looked(bool there);

private Q_SLOTS:
    void look();

private:
    void answered(QDBusPendingCallWatcher* call);
    void conclude(bool notifierHost);

    X11::SelectionWatch* x11Tray = nullptr;
    bool looking = false;
    bool lookAgain = false;
    bool there = false;
    bool concluded = false;
};

} // namespace Quillstacks
