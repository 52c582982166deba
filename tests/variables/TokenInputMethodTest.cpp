// Input methods in the token editor.
#include "TokenFixture.h"

#include "interface/Composition.h"

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

} // namespace
} // namespace Quillstacks
