#include "variables/TokenTextView.h"

#include "interface/PlainTextDocument.h"
#include "TokenAccessible.h"
#include "TokenObject.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QTextBlock>
#include <QTextLayout>

namespace Quillstacks {
namespace {

constexpr int containerInset = 8;

} // namespace

TokenTextView::TokenTextView(QWidget* parent) : PlainTextEdit(parent) {
    TokenAccessible::install();
    setObjectName(QStringLiteral("TokenTextView"));
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    document()->setUndoRedoEnabled(false);
    document()->setDocumentMargin(containerInset);
    new TokenObject(this);
    connect(this, &QTextEdit::cursorPositionChanged, this, [this] { TokenAccessible::announceCaret(this); });
    connect(this, &QTextEdit::selectionChanged, this, [this] { TokenAccessible::announceCaret(this); });
}

bool TokenTextView::isComposing() const {
    const QTextLayout* layout = textCursor().block().layout();
    return layout && !layout->preeditAreaText().isEmpty();
}

void TokenTextView::keyPressEvent(QKeyEvent* event) {
    const bool isUndo = event->matches(QKeySequence::Undo);
    if ((!isUndo && !event->matches(QKeySequence::Redo)) || isReadOnly()) {
        PlainTextEdit::keyPressEvent(event);
        return;
    }
    event->accept();
    if (const auto& command = isUndo ? commands.undo : commands.redo)
        command();
}

QMenu* TokenTextView::createMenu(const QPoint& position) {
    QMenu* menu = createStandardContextMenu(position);
    const auto adopt = [&](const char* name, const std::function<void()>& command, const std::function<bool()>& can) {
        auto* action = menu->findChild<QAction*>(QLatin1String(name));
        if (!action)
            return;
        action->disconnect();
        action->setEnabled(can && can() && !isReadOnly());
        connect(action, &QAction::triggered, this, [command] { command(); });
    };
    adopt("edit-undo", commands.undo, commands.canUndo);
    adopt("edit-redo", commands.redo, commands.canRedo);
    return menu;
}

void TokenTextView::contextMenuEvent(QContextMenuEvent* event) {
    QMenu* menu = createMenu(event->pos());
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->popup(event->globalPos());
    event->accept();
}

void TokenTextView::insertText(const QString& text) {
    // The view's own caret follows by itself, and goes where the coordinator puts it: it must not be set again here.
    QTextCursor cursor = textCursor();
    PlainTextDocument::insert(cursor, text, {});
}

void TokenTextView::refresh() {
    Q_EMIT refreshBegins();
    PlainTextEdit::refresh();
    // Another font makes other tokens.
    document()->markContentsDirty(0, document()->characterCount());
    Q_EMIT refreshEnds();
}

} // namespace Quillstacks
