#include "KeyMonitor.h"

#include "hotkey/ShortcutDisplay.h"
#include "platform/VirtualKeys.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QPointer>

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

namespace Quillstacks::KeyMonitor {

namespace {

/// Both window systems count keys from here.
constexpr quint32 scanCodeOffset = 8;

class Filter final : public QObject {
public:
    using QObject::QObject;
    std::vector<Handler> handlers;

    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        switch (event->type()) {
        case QEvent::ShortcutOverride:
            return keepFromShortcuts(static_cast<QKeyEvent&>(*event));
        case QEvent::KeyPress:
            return pressed(static_cast<const QKeyEvent&>(*event));
        default:
            return false;
        }
    }

private:
    /// The toolkit asks this before it looks for a shortcut with the key. Who accepts gets the key itself next.
    [[nodiscard]] bool keepFromShortcuts(QKeyEvent& event) const {
        const bool wanted = keyDown(event) &&
                            std::ranges::any_of(handlers, [](const Handler& handler) { return handler.isListening(); });
        if (wanted)
            event.accept();
        return wanted;
    }
    [[nodiscard]] bool pressed(const QKeyEvent& event) const {
        const auto key = keyDown(event);
        if (!key)
            return false;
        // By index: a handler may lead to another being added.
        for (size_t index = 0; index < handlers.size(); ++index) {
            const Handler handler = handlers[index];
            if (handler.isListening() && handler.keyDown(*key))
                return true;
        }
        return false;
    }
};

bool isModifier(int key) {
    switch (key) {
    case Qt::Key_Shift:
    case Qt::Key_Control:
    case Qt::Key_Meta:
    case Qt::Key_Alt:
    case Qt::Key_AltGr:
    case Qt::Key_CapsLock:
    case Qt::Key_Super_L:
    case Qt::Key_Super_R:
    case Qt::Key_Hyper_L:
    case Qt::Key_Hyper_R:
    case Qt::Key_Mode_switch:
        return true;
    default:
        return false;
    }
}

quint64 flags(Qt::KeyboardModifiers modifiers) {
    static constexpr std::array<std::pair<Qt::KeyboardModifier, quint64>, 4> table = {{
        {Qt::ShiftModifier, ModifierFlags::shift},
        {Qt::MetaModifier, ModifierFlags::control},
        {Qt::AltModifier, ModifierFlags::option},
        {Qt::ControlModifier, ModifierFlags::command},
    }};
    quint64 result = 0;
    for (const auto& [modifier, flag] : table)
        if (modifiers.testFlag(modifier))
            result |= flag;
    return result;
}

std::optional<quint16> keyCode(quint32 scanCode) {
    if (scanCode < scanCodeOffset)
        return std::nullopt;
    const auto code = VirtualKeys::virtualFromEvdev(scanCode - scanCodeOffset);
    return code ? std::optional(static_cast<quint16>(*code)) : std::nullopt;
}

} // namespace

void add(Handler handler) {
    // The application owns it; a test program makes more than one application.
    static QPointer<Filter> filter;
    if (!filter) {
        filter = new Filter(QCoreApplication::instance());
        QCoreApplication::instance()->installEventFilter(filter);
    }
    filter->handlers.push_back(std::move(handler));
}

std::optional<KeyDown> keyDown(const QKeyEvent& event) {
    if (isModifier(event.key()))
        return std::nullopt;
    return KeyDown{.modifiers = flags(event.modifiers()), .keyCode = keyCode(event.nativeScanCode())};
}

} // namespace Quillstacks::KeyMonitor
