// Input methods and assistive tools in the token editor.
#include "TokenFixture.h"

#include "interface/Composition.h"

#include <QAccessible>
#include <QTextLayout>

namespace Quillstacks {
namespace {

class TokenInputMethod : public TokenEditor {
protected:
    [[nodiscard]] QString composing() const { return view->textCursor().block().layout()->preeditAreaText(); }
    [[nodiscard]] int composingAt() const { return view->textCursor().block().layout()->preeditAreaPosition(); }
};

TEST_F(TokenInputMethod, aCompositionLeavesTheTextAlone) {
    open(QStringLiteral("a {{b}} c"), 3);
    QSignalSpy changes(&editor, &TokenizingTextView::textChanged);
    compose(QStringLiteral("か"));
    compose(QStringLiteral("かな"));
    EXPECT_EQ(composing(), QStringLiteral("かな"));
    EXPECT_EQ(composingAt(), 3);
    EXPECT_EQ(caret(), 3);
    EXPECT_EQ(changes.count(), 0);
    commit(QStringLiteral("仮名"));
    EXPECT_EQ(editor.text(), QStringLiteral("a {{b}}仮名 c"));
    EXPECT_EQ(shown(), rebuilt(editor.text()));
    EXPECT_EQ(changes.count(), 1);
    EXPECT_EQ(caret(), 5);
}

TEST_F(TokenInputMethod, aCompositionThatIsGivenUpChangesNothing) {
    open(QStringLiteral("ab {{c}} d"), 1);
    compose(QStringLiteral("か"));
    compose(QString());
    EXPECT_EQ(editor.text(), QStringLiteral("ab {{c}} d"));
    EXPECT_EQ(caret(), 1);
    EXPECT_FALSE(editor.coordinator().canUndo());
}

TEST_F(TokenInputMethod, tokensWaitForTheEndOfAComposition) {
    open(QStringLiteral("x {{a!}} y"));
    select(5, 6);
    // The selection goes when composing begins, and its neighbours make a placeholder.
    compose(QStringLiteral("か"));
    EXPECT_EQ(editor.text(), QStringLiteral("x {{a}} y"));
    EXPECT_EQ(tokens(), QStringList());
    EXPECT_EQ(composing(), QStringLiteral("か"));
    compose(QStringLiteral("かな"));
    EXPECT_EQ(composing(), QStringLiteral("かな"));
    compose(QString());
    EXPECT_EQ(tokens(), QStringList(QStringLiteral("a")));
    EXPECT_EQ(shown(), rebuilt(editor.text()));
    undo();
    EXPECT_EQ(editor.text(), QStringLiteral("x {{a!}} y"));
}

TEST_F(TokenInputMethod, textMayBeCommittedWhileMoreIsComposed) {
    open(QStringLiteral("{{na"));
    commit(QStringLiteral("me}}"), QStringLiteral("か"));
    EXPECT_EQ(editor.text(), QStringLiteral("{{name}}"));
    EXPECT_EQ(composing(), QStringLiteral("か"));
    EXPECT_EQ(composingAt(), 8);
    commit(QStringLiteral("仮"));
    EXPECT_EQ(editor.text(), QStringLiteral("{{name}}仮"));
    EXPECT_EQ(shown(), rebuilt(editor.text()));
    EXPECT_EQ(caret(), 2);
}

TEST_F(TokenInputMethod, aCommitMayReplaceTextBeforeTheCaret) {
    open(QStringLiteral("say {{name) now"), 11);
    commit(QStringLiteral("}}"), {}, -1, 1);
    EXPECT_EQ(editor.text(), QStringLiteral("say {{name}} now"));
    EXPECT_EQ(tokens(), QStringList(QStringLiteral("name")));
    open(QStringLiteral("abc"));
    commit(QStringLiteral("x\r\ny"), {}, -2, 2);
    EXPECT_EQ(editor.text(), QStringLiteral("ax\r\ny"));
}

TEST_F(TokenInputMethod, leavingTheEditorKeepsWhatIsComposed) {
    Composition composition(view);
    open(QStringLiteral("{{nam}}"));
    compose(QStringLiteral("か"));
    view->clearFocus();
    EXPECT_EQ(editor.text(), QStringLiteral("{{nam}}か"));
    EXPECT_EQ(shown(), rebuilt(editor.text()));
}

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

} // namespace
} // namespace Quillstacks
