#include "LastInput.h"

#include <QApplication>
#include <QEvent>

namespace Quillstacks::LastInput {
namespace {

class Watcher final : public QObject {
public:
    explicit Watcher(QObject* parent) : QObject(parent) { parent->installEventFilter(this); }

    bool eventFilter(QObject*, QEvent* event) override {
        switch (event->type()) {
        case QEvent::KeyPress:
        case QEvent::ShortcutOverride: // comes before the shortcuts, which see no KeyPress
            key = true;
            break;
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:
        case QEvent::MouseButtonRelease:
            key = false;
            break;
        default:
            break;
        }
        return false;
    }

    bool key = false;
};

Watcher& watcher() {
    static auto* made = new Watcher(qApp);
    return *made;
}

} // namespace

void watch() {
    watcher();
}

bool wasKey() {
    return watcher().key;
}

} // namespace Quillstacks::LastInput
