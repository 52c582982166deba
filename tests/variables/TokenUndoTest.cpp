#include "TokenFixture.h"

#include <QMenu>

#include <memory>

namespace Quillstacks {
namespace {

class TokenUndo : public TokenEditor {};

TEST_F(TokenUndo, takesATokenBackToItsTextWithoutTheLastBrace) {
    type(QStringLiteral("say {{name}}"));
    undo();
    EXPECT_EQ(editor.text(), QStringLiteral("say {{name}"));
    EXPECT_EQ(tokens(), QStringList());
    EXPECT_EQ(caret(), 11);
    redo();
    EXPECT_EQ(editor.text(), QStringLiteral("say {{name}}"));
    EXPECT_EQ(tokens(), QStringList(QStringLiteral("name")));
    EXPECT_EQ(caret(), 5);
}

TEST_F(TokenUndo, bringsADeletedTokenBackWhole) {
    open(QStringLiteral("a {{ name }} b"), 3);
    press(Qt::Key_Backspace);
    undo();
    EXPECT_EQ(editor.text(), QStringLiteral("a {{ name }} b"));
    EXPECT_EQ(shown(), rebuilt(editor.text()));
    EXPECT_EQ(caret(), 3);
}

TEST_F(TokenUndo, goesWordByWord) {
    type(QStringLiteral("one two"));
    undo();
    EXPECT_EQ(editor.text(), QStringLiteral("one "));
    undo();
    EXPECT_EQ(editor.text(), QString());
    undo();
    EXPECT_EQ(editor.text(), QString());
    redo();
    redo();
    redo();
    EXPECT_EQ(editor.text(), QStringLiteral("one two"));
}

TEST_F(TokenUndo, takesCharactersThatWereDeletedInARowBackAtOnce) {
    open(QStringLiteral("abcdef"), 4);
    press(Qt::Key_Backspace);
    press(Qt::Key_Backspace);
    EXPECT_EQ(editor.text(), QStringLiteral("abef"));
    undo();
    EXPECT_EQ(editor.text(), QStringLiteral("abcdef"));
    place(1);
    press(Qt::Key_Delete);
    press(Qt::Key_Delete);
    EXPECT_EQ(editor.text(), QStringLiteral("adef"));
    undo();
    EXPECT_EQ(editor.text(), QStringLiteral("abcdef"));
    EXPECT_EQ(caret(), 1);
}

TEST_F(TokenUndo, aMovedCaretBeginsAStep) {
    type(QStringLiteral("ab"));
    press(Qt::Key_Left);
    type(QStringLiteral("c"));
    undo();
    EXPECT_EQ(editor.text(), QStringLiteral("ab"));
}

TEST_F(TokenUndo, anEditEndsWhatCouldBeRedone) {
    type(QStringLiteral("one two"));
    undo();
    type(QStringLiteral("x"));
    EXPECT_FALSE(editor.coordinator().canRedo());
    redo();
    EXPECT_EQ(editor.text(), QStringLiteral("one x"));
}

TEST_F(TokenUndo, isToldToTheModel) {
    type(QStringLiteral("{{a}}"));
    QSignalSpy changes(&editor, &TokenizingTextView::textChanged);
    undo();
    redo();
    EXPECT_EQ(changes.count(), 2);
}

TEST_F(TokenUndo, aChangeFromOutsideEndsIt) {
    type(QStringLiteral("typed"));
    editor.setText(QStringLiteral("restored"));
    undo();
    EXPECT_EQ(editor.text(), QStringLiteral("restored"));
}

TEST_F(TokenUndo, theFirstTextIsNothingToUndo) {
    open(QStringLiteral("{{loaded}}"));
    EXPECT_FALSE(editor.coordinator().canUndo());
}

TEST_F(TokenUndo, replacingASelectionIsOneStep) {
    open(QStringLiteral("a {{b}} c"));
    select(1, 4);
    paste(QStringLiteral("{{x}}{{y}}"));
    EXPECT_EQ(editor.text(), QStringLiteral("a{{x}}{{y}}c"));
    undo();
    EXPECT_EQ(editor.text(), QStringLiteral("a {{b}} c"));
    EXPECT_EQ(shown(), rebuilt(editor.text()));
}

TEST_F(TokenUndo, aReadOnlyViewUndoesNothing) {
    type(QStringLiteral("one"));
    view->setReadOnly(true);
    undo();
    EXPECT_EQ(editor.text(), QStringLiteral("one"));
}

TEST_F(TokenUndo, theMenuUndoesTheSameSteps) {
    type(QStringLiteral("{{a}}"));
    const std::unique_ptr<QMenu> menu(view->createMenu({}));
    auto* undoAction = menu->findChild<QAction*>(QStringLiteral("edit-undo"));
    auto* redoAction = menu->findChild<QAction*>(QStringLiteral("edit-redo"));
    ASSERT_TRUE(undoAction && redoAction);
    EXPECT_TRUE(undoAction->isEnabled());
    EXPECT_FALSE(redoAction->isEnabled());
    undoAction->trigger();
    EXPECT_EQ(editor.text(), QStringLiteral("{{a}"));
    redoAction->setEnabled(true);
    redoAction->trigger();
    EXPECT_EQ(editor.text(), QStringLiteral("{{a}}"));
}

} // namespace
} // namespace Quillstacks
