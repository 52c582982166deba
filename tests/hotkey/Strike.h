#pragma once

#include <QCoreApplication>
#include <QKeyEvent>
#include <QWindow>

#include <linux/input-event-codes.h>

namespace Quillstacks {

/// A key of the keyboard: its place, and what the layout has there.
struct KeyStroke {
    quint32 evdev = 0;
    Qt::Key key = Qt::Key_unknown;
    Qt::KeyboardModifiers modifiers;
    bool isRepeat = false;
};

/// One event of a key, as the toolkit makes it of what the window system sends.
inline bool sendKey(QWindow* window, QEvent::Type type, const KeyStroke& stroke) {
    constexpr quint32 scanCodeOffset = 8;
    const bool isLetter = stroke.key >= Qt::Key_A && stroke.key <= Qt::Key_Z && stroke.modifiers == Qt::NoModifier;
    const QString text = isLetter ? QString(QChar(stroke.key)).toLower() : QString();
    QKeyEvent event(type, stroke.key, stroke.modifiers, stroke.evdev + scanCodeOffset, 0, 0, text, stroke.isRepeat);
    event.setAccepted(type != QEvent::ShortcutOverride);
    QCoreApplication::sendEvent(window, &event);
    return event.isAccepted();
}

/// A key goes down, and up again. The press comes as a shortcut's first unless something claims it.
inline void strike(QWindow* window, const KeyStroke& stroke) {
    sendKey(window, QEvent::ShortcutOverride, stroke);
    sendKey(window, QEvent::KeyPress, stroke);
    sendKey(window, QEvent::KeyRelease, stroke);
}

namespace Strokes {
inline const KeyStroke plainK{KEY_K, Qt::Key_K, Qt::NoModifier};
inline const KeyStroke commandK{KEY_K, Qt::Key_K, Qt::ControlModifier};
inline const KeyStroke commandA{KEY_A, Qt::Key_A, Qt::ControlModifier};
inline const KeyStroke command1{KEY_1, Qt::Key_1, Qt::ControlModifier};
inline const KeyStroke allFourK{KEY_K, Qt::Key_K,
                                Qt::ControlModifier | Qt::ShiftModifier | Qt::AltModifier | Qt::MetaModifier};
} // namespace Strokes

} // namespace Quillstacks
