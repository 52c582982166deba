#include "interface/Composition.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QInputMethod>
#include <QInputMethodEvent>
#include <QWidget>

namespace Quillstacks {

Composition::Composition(QWidget* watched) : QObject(watched), field(watched) {
    field->installEventFilter(this);
}

void Composition::commit() {
    if (composed.isEmpty())
        return;
    QGuiApplication::inputMethod()->commit();
    // Not every input method answers.
    if (composed.isEmpty())
        return;
    QInputMethodEvent event;
    event.setCommitString(composed);
    QCoreApplication::sendEvent(field, &event);
}

bool Composition::eventFilter(QObject*, QEvent* event) {
    if (event->type() == QEvent::InputMethod)
        composed = static_cast<QInputMethodEvent*>(event)->preeditString();
    else if (event->type() == QEvent::FocusOut)
        commit(); // what the toolkit could not commit it drops now
    return false;
}

} // namespace Quillstacks
