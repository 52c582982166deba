#include "TokenAccessible.h"

#include "interface/PlainTextDocument.h"
#include "interface/Sheet.h"
#include "variables/TokenDocument.h"
#include "variables/TokenTextView.h"

#include <QAccessibleWidget>
#include <QScrollBar>
#include <QTextCursor>

#include <algorithm>

namespace Quillstacks::TokenAccessible {
namespace {

class TokenTextInterface final : public QAccessibleWidget,
                                 public QAccessibleTextInterface,
                                 public QAccessibleEditableTextInterface {
public:
    explicit TokenTextInterface(TokenTextView* given) : QAccessibleWidget(given, QAccessible::EditableText) {}

    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::TextInterface)
            return static_cast<QAccessibleTextInterface*>(this);
        if (type == QAccessible::EditableTextInterface)
            return static_cast<QAccessibleEditableTextInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }
    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.multiLine = true;
        state.selectableText = true;
        (view()->isReadOnly() ? state.readOnly : state.editable) = true;
        return state;
    }
    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Value ? view()->text() : QAccessibleWidget::text(kind);
    }
    void setText(QAccessible::Text kind, const QString& text) override {
        if (kind == QAccessible::Value)
            replaceText(0, characterCount(), text);
        else
            QAccessibleWidget::setText(kind, text);
    }

    // The text
    [[nodiscard]] QString text(int from, int to) const override { return view()->text().mid(from, to - from); }
    [[nodiscard]] int characterCount() const override { return static_cast<int>(view()->text().size()); }
    QString attributes(int, int* from, int* to) const override {
        *from = 0;
        *to = characterCount();
        return {};
    }

    // The caret
    [[nodiscard]] int cursorPosition() const override { return offset(view()->textCursor().position()); }
    void setCursorPosition(int at) override { select(at, at); }

    // The selection: one at most
    [[nodiscard]] int selectionCount() const override { return view()->textCursor().hasSelection() ? 1 : 0; }
    void selection(int, int* from, int* to) const override {
        *from = offset(view()->textCursor().selectionStart());
        *to = offset(view()->textCursor().selectionEnd());
    }
    void addSelection(int from, int to) override { select(from, to); }
    void setSelection(int, int from, int to) override { select(from, to); }
    void removeSelection(int) override {
        QTextCursor cursor = view()->textCursor();
        cursor.clearSelection();
        view()->setTextCursor(cursor);
    }

    // Places
    [[nodiscard]] QRect characterRect(int at) const override {
        QTextCursor cursor(view()->document());
        cursor.setPosition(position(at));
        QRect rect = view()->cursorRect(cursor);
        if (!cursor.atBlockEnd() && cursor.movePosition(QTextCursor::NextCharacter))
            rect.setRight(std::max(rect.left(), view()->cursorRect(cursor).left()));
        return rect.translated(view()->viewport()->mapToGlobal(QPoint()));
    }
    [[nodiscard]] int offsetAtPoint(const QPoint& point) const override {
        const QPoint inside = view()->viewport()->mapFromGlobal(point);
        return view()->viewport()->rect().contains(inside) ? offset(view()->cursorForPosition(inside).position()) : -1;
    }
    void scrollToSubstring(int from, int) override {
        QTextCursor cursor(view()->document());
        cursor.setPosition(position(from));
        QScrollBar* bar = view()->verticalScrollBar();
        const QRect rect = view()->cursorRect(cursor);
        if (rect.top() < 0 || rect.bottom() > view()->viewport()->height())
            bar->setValue(bar->value() + rect.top());
    }

    // Editing
    void deleteText(int from, int to) override { replaceText(from, to, {}); }
    void insertText(int at, const QString& text) override { replaceText(at, at, text); }
    void replaceText(int from, int to, const QString& text) override {
        if (view()->isReadOnly() || !view()->isEnabled() || Sheet::covers(view()))
            return;
        const int end = characterCount();
        from = std::clamp(from, 0, end);
        to = std::clamp(to, from, end);
        TokenDocument::replacePlain(*view()->document(), from, to - from, text);
    }

private:
    [[nodiscard]] TokenTextView* view() const { return static_cast<TokenTextView*>(widget()); }
    [[nodiscard]] int offset(int position) const {
        return static_cast<int>(PlainTextDocument::textPosition(*view()->document(), position));
    }
    [[nodiscard]] int position(int at) const { return PlainTextDocument::documentPosition(*view()->document(), at); }
    void select(int from, int to) {
        QTextCursor cursor = view()->textCursor();
        cursor.setPosition(position(from));
        cursor.setPosition(position(to), QTextCursor::KeepAnchor);
        view()->setTextCursor(cursor);
    }
};

QAccessibleInterface* makeInterface(const QString&, QObject* object) {
    auto* view = qobject_cast<TokenTextView*>(object);
    return view ? new TokenTextInterface(view) : nullptr;
}

} // namespace

void install() {
    static const bool installed = [] {
        QAccessible::installFactory(makeInterface);
        return true;
    }();
    Q_UNUSED(installed)
}

void announceCaret(TokenTextView* view) {
    if (!QAccessible::isActive())
        return;
    const QTextCursor cursor = view->textCursor();
    const auto offset = [view](int position) {
        return static_cast<int>(PlainTextDocument::textPosition(*view->document(), position));
    };
    const int caret = offset(cursor.position());
    if (caret != cursor.position()) {
        QAccessibleTextCursorEvent event(view, caret);
        QAccessible::updateAccessibility(&event);
    }
    if (cursor.hasSelection()) {
        QAccessibleTextSelectionEvent event(view, offset(cursor.selectionStart()), offset(cursor.selectionEnd()));
        event.setCursorPosition(caret);
        QAccessible::updateAccessibility(&event);
    }
}

} // namespace Quillstacks::TokenAccessible
