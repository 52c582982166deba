#include "interface/Typing.h"

#include <QApplication>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextEdit>

namespace Quillstacks {

bool isTyping() {
    const QWidget* focus = QApplication::focusWidget();
    return qobject_cast<const QLineEdit*>(focus) || qobject_cast<const QTextEdit*>(focus) ||
           qobject_cast<const QPlainTextEdit*>(focus);
}

} // namespace Quillstacks
