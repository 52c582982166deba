// The keys of the prompt list.
#include "interface/LazyList.h"
#include "interface/Menu.h"
#include "interface/Typing.h"
#include "library/PromptListView.h"

#include <QContextMenuEvent>
#include <QKeyEvent>

namespace Quillstacks {

void PromptListView::keyPressEvent(QKeyEvent* event) {
    const bool isMenuKey = event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier;
    if (!isTyping() && isMenuKey)
        showMenuOfSelection();
    else if (isTyping() || !handlePlainKey(*event))
        event->ignore(); // QWidget::keyPressEvent would do no more
}

bool PromptListView::handlePlainKey(const QKeyEvent& event) {
    // The keypad's keys are the same keys.
    if ((event.modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier)
        return false;
    switch (event.key()) {
    case Qt::Key_P:
        if (event.isAutoRepeat())
            return false;
        newPrompt();
        return true;
    case Qt::Key_E:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        // A Return that is held may have closed the editor just now.
        if (Prompt* prompt = livingSelection(); prompt && !event.isAutoRepeat()) {
            edit(prompt);
            return true;
        }
        return false;
    case Qt::Key_Up:
        moveSelection(-1);
        return true;
    case Qt::Key_Down:
        moveSelection(1);
        return true;
    case Qt::Key_Delete:
        askToDeleteSelection();
        return true;
    default:
        return false;
    }
}

void PromptListView::contextMenuEvent(QContextMenuEvent* event) {
    // The pointer's menus come from the list, which knows the row; this is the menu key.
    if (event->reason() == QContextMenuEvent::Keyboard)
        showMenuOfSelection();
    else
        event->ignore();
}

void PromptListView::showMenuOfSelection() {
    const qsizetype index = shown.indexOf(livingSelection());
    if (index < 0)
        return;
    list->ensureVisible(static_cast<int>(index));
    const QWidget* row = list->row(static_cast<int>(index));
    const QPoint at = row ? row->mapToGlobal(QPoint(48, 36)) : mapToGlobal(rect().center());
    makeContextMenu(shown[index])->popup(at);
}

} // namespace Quillstacks
