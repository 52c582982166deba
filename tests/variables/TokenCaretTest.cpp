// Where the caret stands after an edit in the token editor.
#include "TokenFixture.h"

#include <QScrollBar>

namespace Quillstacks {
namespace {

class TokenCaret : public TokenEditor {};

TEST_F(TokenCaret, isNotMappedThroughTheConversion) {
    open(QStringLiteral("a {{name} and what follows here"), 9);
    type(QStringLiteral("}"));
    // Ten characters stood before the caret; seven of them are gone in the token, and the caret keeps its number.
    EXPECT_EQ(caret(), 10);
    EXPECT_EQ(PlainTextDocument::text(*view->document(), 0, caret()), QStringLiteral("a {{name}} and wh"));
}

TEST_F(TokenCaret, isLimitedByTheEndOfTheText) {
    type(QStringLiteral("ab {{name}}"));
    EXPECT_EQ(caret(), 4);
    open(QStringLiteral("{{name}."), 7);
    type(QStringLiteral("}"));
    EXPECT_EQ(caret(), 2);
}

TEST_F(TokenCaret, landsAtTheEndOfABodyOfOneToken) {
    type(QStringLiteral("{{name}}"));
    EXPECT_EQ(caret(), 1);
    EXPECT_TRUE(view->textCursor().atEnd());
}

TEST_F(TokenCaret, neverRestsJustBeforeATokenAfterAnEdit) {
    open(QStringLiteral("ab{{name}}c"), 2);
    press(Qt::Key_Backspace);
    EXPECT_EQ(editor.text(), QStringLiteral("a{{name}}c"));
    EXPECT_EQ(caret(), 2);
    open(QStringLiteral("{{name}}c"), 0);
    type(QStringLiteral("x"));
    EXPECT_EQ(caret(), 2);
}

TEST_F(TokenCaret, skipsOneTokenAndRestsBetweenTwoNeighbours) {
    open(QStringLiteral("ab{{one}}{{two}}"), 2);
    press(Qt::Key_Backspace);
    EXPECT_EQ(caret(), 2);
    press(Qt::Key_Backspace);
    EXPECT_EQ(editor.text(), QStringLiteral("a{{two}}"));
}

TEST_F(TokenCaret, mayStandBeforeATokenWithoutAnEdit) {
    open(QStringLiteral("ab{{name}}c"), 4);
    press(Qt::Key_Left);
    press(Qt::Key_Left);
    EXPECT_EQ(caret(), 2);
}

TEST_F(TokenCaret, skippingChecksTheEndAndAnEmptyText) {
    Coordinator& coordinator = editor.coordinator();
    coordinator.skipTokenAtCaret(view);
    EXPECT_EQ(caret(), 0);
    open(QStringLiteral("{{a}}"), 1);
    coordinator.skipTokenAtCaret(view);
    EXPECT_EQ(caret(), 1);
    place(0);
    coordinator.skipTokenAtCaret(view);
    EXPECT_EQ(caret(), 1);
    open(QStringLiteral("{{a}}b"), 0);
    select(0, 2);
    coordinator.skipTokenAtCaret(view);
    EXPECT_EQ(caret(), 1);
    EXPECT_FALSE(hasSelection());
}

TEST_F(TokenCaret, aSelectionBecomesACaretAtItsEndAfterAnEdit) {
    open(QStringLiteral("one two three"));
    select(4, 7);
    QTextCursor elsewhere(view->document());
    elsewhere.insertText(QStringLiteral("x"));
    EXPECT_FALSE(hasSelection());
    EXPECT_EQ(caret(), 8);
    select(8, 5);
    elsewhere.insertText(QStringLiteral("y"));
    EXPECT_FALSE(hasSelection());
    EXPECT_EQ(caret(), 9);
}

TEST_F(TokenCaret, countsALineEndOfTwoUnitsAsTwo) {
    open(QStringLiteral("{{name}.\r\n\r\nabcdef"), 7);
    type(QStringLiteral("}"));
    // Eight units: the token, the full stop, two line ends of two each, and two letters.
    EXPECT_EQ(PlainTextDocument::text(*view->document(), 0, caret()), QStringLiteral("{{name}}.\r\n\r\nab"));
}

TEST_F(TokenCaret, neverLandsWithinACharacterOrALineEnd) {
    open(QStringLiteral("{{name}a.....😀b"), 7);
    type(QStringLiteral("}"));
    EXPECT_EQ(PlainTextDocument::text(*view->document(), 0, caret()), QStringLiteral("{{name}}a.....😀"));
    open(QStringLiteral("{{name}a.....\r\nb"), 7);
    type(QStringLiteral("}"));
    EXPECT_EQ(PlainTextDocument::text(*view->document(), 0, caret()), QStringLiteral("{{name}}a.....\r\n"));
}

TEST_F(TokenCaret, keepsItsNumberAfterAPasteToo) {
    open(QStringLiteral("a b c d e f"), 0);
    paste(QStringLiteral("{{x}}"));
    EXPECT_EQ(caret(), 5);
    EXPECT_EQ(PlainTextDocument::text(*view->document(), 0, caret()), QStringLiteral("{{x}}a b "));
}

TEST_F(TokenCaret, keysGoOnWhereItLanded) {
    type(QStringLiteral("a {{b}} c {d} e"));
    EXPECT_EQ(editor.text(), QStringLiteral("a {{b}} c {d} e"));
}

TEST_F(TokenCaret, isNotSetByAChangeFromOutside) {
    open(QStringLiteral("first"), 2);
    editor.setText(QStringLiteral("{{a}} and more"));
    EXPECT_FALSE(hasSelection());
    EXPECT_TRUE(view->textCursor().atEnd()); // where the toolkit leaves it
    EXPECT_EQ(view->verticalScrollBar()->value(), 0);
}

} // namespace
} // namespace Quillstacks
