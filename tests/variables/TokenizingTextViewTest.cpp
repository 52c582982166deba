// Typing, deleting, pasting and changes from outside in the token editor.
#include "TokenFixture.h"

namespace Quillstacks {
namespace {

class TokenizingText : public TokenEditor {};

TEST_F(TokenizingText, typingAPlaceholderTurnsIntoATokenAtTheLastBrace) {
    type(QStringLiteral("{{name}"));
    EXPECT_EQ(tokens(), QStringList());
    EXPECT_EQ(view->document()->characterCount() - 1, 7);
    type(QStringLiteral("}"));
    EXPECT_EQ(tokens(), QStringList(QStringLiteral("name")));
    EXPECT_EQ(view->document()->characterCount() - 1, 1);
    EXPECT_EQ(editor.text(), QStringLiteral("{{name}}"));
}

TEST_F(TokenizingText, backspaceAfterATokenDeletesItWhole) {
    open(QStringLiteral("Dear {{ name }}!"), 6);
    press(Qt::Key_Backspace);
    EXPECT_EQ(editor.text(), QStringLiteral("Dear !"));
    EXPECT_EQ(tokens(), QStringList());
    EXPECT_EQ(caret(), 5);
}

TEST_F(TokenizingText, innerSpacesReturnToTheModel) {
    type(QStringLiteral("a {{ name }} b"));
    EXPECT_EQ(tokens(), QStringList(QStringLiteral("name")));
    EXPECT_EQ(editor.text(), QStringLiteral("a {{ name }} b"));
}

TEST_F(TokenizingText, aSingleBraceFormIsATokenAndUnevenBracesAreNot) {
    open(QStringLiteral("{name}"));
    EXPECT_EQ(tokens(), QStringList(QStringLiteral("name")));
    open(QStringLiteral("{{name}"));
    EXPECT_EQ(tokens(), QStringList());
    open(QStringLiteral("{name}}"));
    EXPECT_EQ(tokens(), QStringList());
}

TEST_F(TokenizingText, aBraceTypedBesideATokenMakesItPlainAgain) {
    type(QStringLiteral("{name}"));
    type(QStringLiteral("}"));
    EXPECT_EQ(tokens(), QStringList());
    EXPECT_EQ(editor.text(), QStringLiteral("{name}}"));
    // The number of the caret stays: behind one token and one brace it was 2.
    EXPECT_EQ(caret(), 2);
    press(Qt::Key_End);
    press(Qt::Key_Backspace);
    EXPECT_EQ(tokens(), QStringList(QStringLiteral("name")));
}

TEST_F(TokenizingText, bracesAroundASingleFormMakeADoubleOne) {
    open(QStringLiteral("{a}}"), 0);
    type(QStringLiteral("{"));
    EXPECT_EQ(shown(), QStringList(QStringLiteral(":⟨a|{{a}}⟩")));
}

TEST_F(TokenizingText, pastingTwoPlaceholdersGivesTwoTokens) {
    paste(QStringLiteral("{{a}} and {{b}}"));
    EXPECT_EQ(tokens(), QStringList({QStringLiteral("a"), QStringLiteral("b")}));
    EXPECT_EQ(editor.text(), QStringLiteral("{{a}} and {{b}}"));
}

TEST_F(TokenizingText, pastingBetweenBracesClosesAPlaceholderOverParagraphs) {
    open(QStringLiteral("x {{"));
    paste(QStringLiteral("\nname\r\n}} y"));
    EXPECT_EQ(shown(), QStringList(QStringLiteral(":x ⟨name|{{\nname\r\n}}⟩ y")));
    EXPECT_EQ(editor.text(), QStringLiteral("x {{\nname\r\n}} y"));
}

TEST_F(TokenizingText, deletingBetweenTwoParagraphsJoinsAPlaceholder) {
    open(QStringLiteral("{{!\nname}}"), 3);
    press(Qt::Key_Backspace);
    EXPECT_EQ(shown(), QStringList(QStringLiteral(":⟨name|{{\nname}}⟩")));
}

TEST_F(TokenizingText, anEditTellsTheModelOnce) {
    QSignalSpy changes(&editor, &TokenizingTextView::textChanged);
    type(QStringLiteral("{a"));
    EXPECT_EQ(changes.count(), 2);
    type(QStringLiteral("}"));
    EXPECT_EQ(changes.count(), 3);
}

TEST_F(TokenizingText, aChangeFromOutsideGivesNoFeedback) {
    open(QStringLiteral("old {{name}}"));
    QSignalSpy changes(&editor, &TokenizingTextView::textChanged);
    editor.setText(QStringLiteral("restored {{topic}}"));
    EXPECT_EQ(tokens(), QStringList(QStringLiteral("topic")));
    EXPECT_EQ(editor.text(), QStringLiteral("restored {{topic}}"));
    EXPECT_EQ(changes.count(), 0);
    EXPECT_FALSE(editor.coordinator().isProgrammaticChange);
}

TEST_F(TokenizingText, theGuardIsUpWhileTheContentsAreReplacedAndOnlyThen) {
    bool before = false;
    bool during = false;
    int changes = 0;
    QObject::connect(&editor, &TokenizingTextView::textChanged, &editor,
                     [&] { before = before || editor.coordinator().isProgrammaticChange; });
    type(QStringLiteral("{a"));
    QObject::connect(view->document(), &QTextDocument::contentsChange, &editor, [&] {
        ++changes;
        during = editor.coordinator().isProgrammaticChange;
    });
    type(QStringLiteral("}"));
    EXPECT_FALSE(before);
    EXPECT_EQ(changes, 2);
    EXPECT_TRUE(during);
    EXPECT_FALSE(editor.coordinator().isProgrammaticChange);
}

TEST_F(TokenizingText, anEqualTextFromOutsideLeavesCaretSelectionAndUndo) {
    type(QStringLiteral("one {{two}} three"));
    select(1, 6);
    editor.setText(QStringLiteral("one {{two}} three"));
    EXPECT_EQ(view->textCursor().anchor(), 1);
    EXPECT_EQ(caret(), 6);
    EXPECT_TRUE(editor.coordinator().canUndo());
}

TEST_F(TokenizingText, aListenerMaySetAnotherText) {
    QObject::connect(&editor, &TokenizingTextView::textChanged, &editor,
                     [this] { editor.setText(QStringLiteral("{{fixed}} text")); });
    type(QStringLiteral("x"));
    EXPECT_EQ(editor.text(), QStringLiteral("{{fixed}} text"));
    EXPECT_EQ(shown(), rebuilt(editor.text()));
}

TEST_F(TokenizingText, anUpdateWithoutATextViewDoesNothing) {
    Coordinator& coordinator = editor.coordinator();
    delete view;
    editor.setText(QStringLiteral("later"));
    coordinator.textDidChange();
    coordinator.undo();
    EXPECT_EQ(editor.text(), QStringLiteral("later"));
}

TEST_F(TokenizingText, everyCharacterComesBack) {
    const QString text = QStringLiteral("a\rb\r\nc\n\n{{x}}\r\n") + QChar(0x85) + QChar(0x2028) + QChar(0x2029) +
                         QChar(0xA0) + QChar(0xFDD0) + QChar(0xFDD1) + QChar(0xFFFC) + QChar(0) + QChar(0xD800) +
                         QStringLiteral("{{ ") + QChar(0x2029) + QStringLiteral("y\r\n}}😀\t");
    open(text, 0);
    EXPECT_EQ(PlainTextDocument::text(*view->document()), text);
    type(QStringLiteral("z"));
    EXPECT_EQ(editor.text(), QLatin1Char('z') + text);
    press(Qt::Key_A, Qt::ControlModifier);
    paste(text);
    EXPECT_EQ(editor.text(), text);
    EXPECT_EQ(shown(), rebuilt(text));
}

TEST_F(TokenizingText, anObjectCharacterTypedBehindATokenIsACharacter) {
    open(QStringLiteral("{{name}}"));
    commit(QString(QChar(0xFFFC)));
    commit(QString(QChar(0xFFFC)));
    EXPECT_EQ(editor.text(), QStringLiteral("{{name}}") + QChar(0xFFFC) + QChar(0xFFFC));
    EXPECT_EQ(tokens().size(), 1);
    EXPECT_EQ(shown(), rebuilt(editor.text()));
}

TEST_F(TokenizingText, aLineFeedBehindACarriageReturnIsOneLineEnd) {
    open(QStringLiteral("a\rb"), 2);
    press(Qt::Key_Return);
    EXPECT_EQ(editor.text(), QStringLiteral("a\r\nb"));
    EXPECT_EQ(shown(), rebuilt(editor.text()));
    EXPECT_EQ(caret(), 2);
}

TEST_F(TokenizingText, typingKeepsTheLineHeight) {
    view->setLineFormat(view->font(), 24);
    paste(QStringLiteral("a\n{{b}}\nc"));
    for (QTextBlock block = view->document()->begin(); block.isValid(); block = block.next())
        EXPECT_EQ(block.blockFormat().lineHeight(), 24);
}

TEST_F(TokenizingText, aChangeOfTheLookLeavesTextSelectionAndUndo) {
    type(QStringLiteral("one {{two}}"));
    select(1, 3);
    QSignalSpy changes(&editor, &TokenizingTextView::textChanged);
    Q_EMIT Theme::shared().changed();
    view->setLineFormat(view->font(), 30);
    EXPECT_EQ(view->textCursor().anchor(), 1);
    EXPECT_EQ(caret(), 3);
    EXPECT_EQ(changes.count(), 0);
    undo();
    EXPECT_NE(editor.text(), QStringLiteral("one {{two}}"));
}

TEST_F(TokenizingText, theViewIsSetUpForALongText) {
    EXPECT_FALSE(view->isReadOnly());
    EXPECT_EQ(view->document()->documentMargin(), 8);
    EXPECT_EQ(view->horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
    EXPECT_EQ(view->lineWrapMode(), QTextEdit::WidgetWidth);
    EXPECT_EQ(view->frameShape(), QFrame::NoFrame);
    EXPECT_FALSE(view->viewport()->autoFillBackground());
}

} // namespace
} // namespace Quillstacks
