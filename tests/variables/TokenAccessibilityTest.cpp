// What assistive tools read and do in the token editor.
#include "TokenFixture.h"

#include <QAccessible>

namespace Quillstacks {
namespace {

class TokenAccessibility : public TokenEditor {
protected:
    [[nodiscard]] QAccessibleTextInterface* textInterface() const {
        return QAccessible::queryAccessibleInterface(view)->textInterface();
    }
};

TEST_F(TokenAccessibility, readsThePlaceholderAndNoObjectCharacter) {
    open(QStringLiteral("Dear {{ name }}, hi"));
    QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(view);
    ASSERT_NE(interface, nullptr);
    EXPECT_EQ(interface->role(), QAccessible::EditableText);
    EXPECT_EQ(interface->text(QAccessible::Value), QStringLiteral("Dear {{ name }}, hi"));
    EXPECT_EQ(textInterface()->text(0, textInterface()->characterCount()), QStringLiteral("Dear {{ name }}, hi"));
    EXPECT_TRUE(interface->state().multiLine);
    EXPECT_TRUE(interface->state().editable);
}

TEST_F(TokenAccessibility, countsCaretAndSelectionInThePlainText) {
    open(QStringLiteral("a {{b}} c"), 3);
    EXPECT_EQ(textInterface()->cursorPosition(), 7);
    textInterface()->setCursorPosition(8);
    EXPECT_EQ(caret(), 4);
    textInterface()->addSelection(2, 7);
    EXPECT_EQ(view->textCursor().selectionStart(), 2);
    EXPECT_EQ(view->textCursor().selectionEnd(), 3);
    int from = 0;
    int to = 0;
    textInterface()->selection(0, &from, &to);
    EXPECT_EQ(textInterface()->selectionCount(), 1);
    EXPECT_EQ(from, 2);
    EXPECT_EQ(to, 7);
    textInterface()->removeSelection(0);
    EXPECT_EQ(textInterface()->selectionCount(), 0);
}

TEST_F(TokenAccessibility, editsThePlainText) {
    open(QStringLiteral("a {{b}} c"));
    auto* edit = QAccessible::queryAccessibleInterface(view)->editableTextInterface();
    ASSERT_NE(edit, nullptr);
    edit->insertText(5, QStringLiteral("ee"));
    EXPECT_EQ(editor.text(), QStringLiteral("a {{bee}} c"));
    EXPECT_EQ(shown(), rebuilt(editor.text()));
    edit->deleteText(8, 9);
    EXPECT_EQ(editor.text(), QStringLiteral("a {{bee} c"));
    EXPECT_EQ(tokens(), QStringList());
    undo();
    EXPECT_EQ(editor.text(), QStringLiteral("a {{bee}} c"));
    undo();
    EXPECT_EQ(editor.text(), QStringLiteral("a {{b}} c"));
}

TEST_F(TokenAccessibility, tellsPlaces) {
    open(QStringLiteral("ab {{name}}\ncd"));
    const QRect letter = textInterface()->characterRect(12);
    const QRect token = textInterface()->characterRect(3);
    EXPECT_GT(letter.top(), token.top());
    EXPECT_GT(token.width(), 28);
    EXPECT_EQ(textInterface()->offsetAtPoint(token.center() - QPoint(token.width() / 4, 0)), 3);
    EXPECT_EQ(textInterface()->offsetAtPoint(view->viewport()->mapToGlobal(QPoint(-50, -50))), -1);
}

TEST_F(TokenAccessibility, anInertViewIsNotEdited) {
    open(QStringLiteral("a {{b}} c"));
    view->setReadOnly(true);
    QAccessible::queryAccessibleInterface(view)->editableTextInterface()->insertText(0, QStringLiteral("x"));
    EXPECT_EQ(editor.text(), QStringLiteral("a {{b}} c"));
    EXPECT_TRUE(QAccessible::queryAccessibleInterface(view)->state().readOnly);
}

} // namespace
} // namespace Quillstacks
