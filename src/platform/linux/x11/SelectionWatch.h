#pragma once

#include <QAbstractNativeEventFilter>
#include <QObject>

#include <xcb/xcb.h>

namespace Quillstacks::X11 {

/// Watches who owns a manager selection: a compositor, a tray. Without an X connection nobody ever does.
class SelectionWatch final : public QObject, public QAbstractNativeEventFilter {
    Q_OBJECT
public:
    /// `selection` is a name such as "_NET_SYSTEM_TRAY_S0".
    explicit SelectionWatch(const char* selection, QObject* parent = nullptr);
    ~SelectionWatch() override;

    [[nodiscard]] bool isOwned() const;
    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

Q_SIGNALS:
    void changed();

private:
    xcb_atom_t selection = XCB_ATOM_NONE;
    xcb_window_t owner = XCB_WINDOW_NONE; ///< as told; asking for it takes a round trip
    uint8_t notifyEvent = 0; ///< 0: not watching
};

} // namespace Quillstacks::X11
