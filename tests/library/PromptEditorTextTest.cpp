#include "PromptEditorFixture.h"

namespace Quillstacks {

// Every character

TEST_F(PromptEditor, everyCharacterOfABodyComesThroughAnUntouchedEdit) {
    const QString body = QStringLiteral("a\rb\r\nc\nd\u0085e\u2028f\u2029g\u00A0h\tij ") + QChar(0xFDD0) +
                         QStringLiteral("k") + QChar(0xFDD1) + QStringLiteral("l\U0001F600m\u0000n");
    Prompt* prompt = addPrompt(QStringLiteral("t"), body);
    open(prompt);
    EXPECT_EQ(editor->editorBody(), body);
    editor->savePrompt();
    EXPECT_EQ(prompt->body(), body);
    EXPECT_FALSE(prompt->hasVersions());
}

TEST_F(PromptEditor, aTitleComesThroughAnUntouchedEditWhateverItHolds) {
    const QString title = QStringLiteral("a\nb\rc\u2029d\u00A0e") + QString(40'000, QLatin1Char('x'));
    Prompt* prompt = addPrompt(title);
    open(prompt);
    EXPECT_EQ(editor->title(), title);
    editor->savePrompt();
    EXPECT_EQ(prompt->title(), title);
    EXPECT_FALSE(prompt->hasVersions());
}

TEST_F(PromptEditor, aVeryLongTitleCanBeTyped) {
    PromptEditorView& view = present();
    const QString half(40'000, QLatin1Char('x'));
    titleField(view).insert(half);
    titleField(view).insert(half);
    EXPECT_EQ(view.title(), half + half);
}

// Tokens

TEST_F(PromptEditor, aPlaceholderIsShownAsATokenAndSavedAsItWasTyped) {
    PromptEditorView& view = present();
    view.setTitle(QStringLiteral("t"));
    bodyField(view).setFocus();
    QTest::keyClicks(&bodyField(view), QStringLiteral("a {{ name }}."));
    const QString shown = QStringLiteral("a ") + QChar(QChar::ObjectReplacementCharacter) + QLatin1Char('.');
    EXPECT_EQ(bodyField(view).document()->toRawText(), shown);
    EXPECT_EQ(view.editorBody(), QStringLiteral("a {{ name }}."));
    view.savePrompt();
    EXPECT_EQ(library.prompt(QStringLiteral("t"))->body(), QStringLiteral("a {{ name }}."));
}

TEST_F(PromptEditor, whatWasLoadedCanNotBeUndoneAndWhatWasTypedCan) {
    PromptEditorView& view = present(addPrompt(QStringLiteral("t"), QStringLiteral("{a}")));
    bodyField(view).setFocus();
    bodyField(view).moveCursor(QTextCursor::End);
    QTest::keyClicks(&bodyField(view), QStringLiteral(" b"));
    EXPECT_EQ(view.editorBody(), QStringLiteral("{a} b"));
    for (int i = 0; i < 4; ++i)
        QTest::keyClick(&bodyField(view), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(view.editorBody(), QStringLiteral("{a}"));
    EXPECT_FALSE(view.holdsUnsavedTyping());
    QTest::keyClick(&bodyField(view), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_NE(view.editorBody(), QStringLiteral("{a}"));
}

TEST_F(PromptEditor, anUndoIsHeardByTheControls) {
    PromptEditorView& view = present();
    view.setTitle(QStringLiteral("t"));
    bodyField(view).setFocus();
    QTest::keyClicks(&bodyField(view), QStringLiteral("b"));
    EXPECT_TRUE(visibleButton(view, QStringLiteral("Create"))->isEnabled());
    QTest::keyClick(&bodyField(view), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(view.editorBody(), QString());
    EXPECT_FALSE(visibleButton(view, QStringLiteral("Create"))->isEnabled());
    EXPECT_TRUE(placeholder(view)->isVisible());
}

// Input methods

TEST_F(PromptEditor, whatIsStillComposedIsSavedAndCopied) {
    Prompt* prompt = addPrompt(QStringLiteral("t"), QStringLiteral("b"));
    PromptEditorView& view = present(prompt);
    bodyField(view).moveCursor(QTextCursor::End);
    compose(bodyField(view), QStringLiteral("ni"));
    EXPECT_EQ(view.editorBody(), QStringLiteral("b"));
    QTest::mouseClick(visibleButton(view, QStringLiteral("Copy")), Qt::LeftButton);
    EXPECT_EQ(clipboard(), QStringLiteral("bni"));
    compose(bodyField(view), QStringLiteral("hao"));
    QTest::mouseClick(visibleButton(view, QStringLiteral("Save")), Qt::LeftButton);
    EXPECT_EQ(prompt->body(), QStringLiteral("bnihao"));
    EXPECT_EQ(closed->count(), 1);
}

TEST_F(PromptEditor, whatIsStillComposedCountsAsUnsavedTyping) {
    PromptEditorView& view = present(addPrompt(QStringLiteral("t"), QStringLiteral("b")));
    const std::pair<QWidget*, const char*> fields[] = {{&titleField(view), "title"}, {&bodyField(view), "body"}};
    for (const auto& [field, name] : fields) {
        field->setFocus();
        EXPECT_FALSE(view.holdsUnsavedTyping()) << name;
        compose(*field, QStringLiteral("ni"));
        EXPECT_TRUE(view.holdsUnsavedTyping()) << name;
        compose(*field, QString()); // given up
        EXPECT_FALSE(view.holdsUnsavedTyping()) << name;
    }
}

TEST_F(PromptEditor, whatIsStillComposedInTheTitleIsSavedByCtrlS) {
    Prompt* prompt = addPrompt(QStringLiteral("t"), QStringLiteral("b"));
    PromptEditorView& view = present(prompt);
    titleField(view).setFocus();
    titleField(view).end(false);
    compose(titleField(view), QStringLiteral("ni"));
    QTest::keyClick(&titleField(view), Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(prompt->title(), QStringLiteral("tni"));
}

TEST_F(PromptEditor, whatIsStillComposedBehindATokenIsSaved) {
    Prompt* prompt = addPrompt(QStringLiteral("t"), QStringLiteral("{a}"));
    PromptEditorView& view = present(prompt);
    bodyField(view).setFocus();
    bodyField(view).moveCursor(QTextCursor::End);
    compose(bodyField(view), QStringLiteral("ni"));
    QTest::keyClick(&bodyField(view), Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(prompt->body(), QStringLiteral("{a}ni"));
    EXPECT_EQ(closed->count(), 1);
}

} // namespace Quillstacks
