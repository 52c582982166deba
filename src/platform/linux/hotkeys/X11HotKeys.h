#pragma once

#include "hotkeys/ModifierMap.h"
#include "platform/HotKeys.h"

#include <QAbstractNativeEventFilter>
#include <QObject>

#include <vector>

namespace Quillstacks {

/// Hot keys by passive grabs on the root window, by key position.
///
/// They are made on the toolkit's own connection, not on one beside it: while the hot key is held down its grab sends
/// every key to the connection that made it, so what the user types into the panel before letting go of the last key
/// arrives there; with a connection beside it those letters would be lost.
class X11HotKeys final : public QObject, public QAbstractNativeEventFilter {
    Q_OBJECT
public:
    explicit X11HotKeys(xcb_connection_t* connection, QObject* parent = nullptr);
    ~X11HotKeys() override;

    [[nodiscard]] HotKeys::Status grab(HotKeys::HotKeyRef ref, quint32 keyCode, quint32 modifiers);
    void release(HotKeys::HotKeyRef ref);
    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

Q_SIGNALS:
    void pressed(Quillstacks::HotKeys::HotKeyRef ref, quint32 time);

private:
    struct Grab {
        HotKeys::HotKeyRef ref = 0;
        xcb_keycode_t key = 0;
        quint32 wanted = 0;                               ///< the hot key's own modifiers
        std::optional<quint16> xModifiers = std::nullopt; ///< empty while not grabbed
    };

    [[nodiscard]] HotKeys::Status take(Grab& grab);
    void letGo(Grab& grab);
    [[nodiscard]] bool keyPressed(const xcb_key_press_event_t& event);
    void keyReleased(const xcb_key_release_event_t& event);
    void mappingChanged();
    void readMapAgain();

    xcb_connection_t* connection = nullptr;
    xcb_window_t root = XCB_WINDOW_NONE;
    ModifierMap modifierMap;
    std::vector<Grab> grabs;
    quint8 xkbEvent = 0; ///< 0: the server has no such extension
    quint32 mappingChanges = 0;
    xcb_keycode_t lastReleasedKey = 0;
    quint32 lastReleaseTime = 0;
};

} // namespace Quillstacks
