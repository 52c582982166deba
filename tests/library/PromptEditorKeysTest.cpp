#include "PromptEditorFixture.h"

namespace Quillstacks {

TEST_F(PromptEditor, returnInTheTitleSaves) {
    PromptEditorView& view = present();
    titleField(view).setFocus();
    QTest::keyClicks(&titleField(view), QStringLiteral("typed"));
    view.setEditorBody(QStringLiteral("body"));
    QTest::keyClick(&titleField(view), Qt::Key_Return);
    EXPECT_EQ(closed->count(), 1);
    EXPECT_TRUE(library.prompt(QStringLiteral("typed")));
}

TEST_F(PromptEditor, returnInTheBodyBeginsALineAndCtrlSSaves) {
    PromptEditorView& view = present();
    view.setTitle(QStringLiteral("t"));
    bodyField(view).setFocus();
    QTest::keyClicks(&bodyField(view), QStringLiteral("one"));
    QTest::keyClick(&bodyField(view), Qt::Key_Return);
    QTest::keyClicks(&bodyField(view), QStringLiteral("two"));
    EXPECT_EQ(closed->count(), 0);
    EXPECT_EQ(view.editorBody(), QStringLiteral("one\ntwo"));
    QTest::keyClick(&bodyField(view), Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(closed->count(), 1);
    EXPECT_TRUE(library.prompt(QStringLiteral("t")));
}

TEST_F(PromptEditor, returnInTheTitleOfAnEmptyBodyDoesNothing) {
    PromptEditorView& view = present();
    view.setTitle(QStringLiteral("t"));
    titleField(view).setFocus();
    QTest::keyClick(&titleField(view), Qt::Key_Return);
    EXPECT_EQ(closed->count(), 0);
}

TEST_F(PromptEditor, escapeDoesNothing) {
    PromptEditorView& view = present(addPrompt(QStringLiteral("t")));
    titleField(view).setFocus();
    QTest::keyClick(&titleField(view), Qt::Key_Escape);
    bodyField(view).setFocus();
    QTest::keyClick(&bodyField(view), Qt::Key_Escape);
    EXPECT_EQ(closed->count(), 0);
    EXPECT_FALSE(Sheet::of(&view)->isDismissed());
}

TEST_F(PromptEditor, underItsDeleteAlertCtrlSDoesNothing) {
    Prompt* prompt = addPrompt(QStringLiteral("t"));
    PromptEditorView& view = present(prompt);
    view.setTitle(QStringLiteral("typed"));
    view.askToDelete();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(prompt->title(), QStringLiteral("t"));
    EXPECT_EQ(closed->count(), 0);
}

TEST_F(PromptEditor, tabIsACharacterOfTheBodyAndCtrlTabAndShiftTabLeaveIt) {
    PromptEditorView& view = present();
    bodyField(view).setFocus();
    QTest::keyClick(&bodyField(view), Qt::Key_Tab);
    EXPECT_EQ(view.editorBody(), QStringLiteral("\t"));
    EXPECT_TRUE(bodyField(view).hasFocus());
    QTest::keyClick(&bodyField(view), Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(visibleButton(view, QStringLiteral("Create Tag"))->hasFocus());
    bodyField(view).setFocus();
    QTest::keyClick(&bodyField(view), Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_FALSE(bodyField(view).hasFocus());
    EXPECT_TRUE(view.isAncestorOf(QApplication::focusWidget()));
}

TEST_F(PromptEditor, itsButtonsAnswerTheMouse) {
    PromptEditorView& view = present(addPrompt(QStringLiteral("t"), QStringLiteral("b")));
    Button* copy = visibleButton(view, QStringLiteral("Copy"));
    EXPECT_EQ(copy->toolTip(), QStringLiteral("Copy prompt to clipboard"));
    QTest::mouseClick(copy, Qt::LeftButton);
    EXPECT_EQ(clipboard(), QStringLiteral("b"));
    QTest::mouseClick(visibleButton(view, QStringLiteral("Delete")), Qt::LeftButton);
    EXPECT_TRUE(view.isShowingDeleteAlert());
    QStringList texts;
    for (const QLabel* label : Sheet::top(&window)->findChildren<QLabel*>())
        texts += label->text();
    EXPECT_EQ(texts, (QStringList{QStringLiteral("Delete Prompt?"), QStringLiteral("This action cannot be undone.")}));
    view.cancelDeletion();
    QTest::mouseClick(visibleButton(view, QStringLiteral("Cancel")), Qt::LeftButton);
    EXPECT_EQ(closed->count(), 1);
}

TEST_F(PromptEditor, theTabKeyFollowsTheReadingOrder) {
    addTag(QStringLiteral("Work"));
    Prompt* prompt = addPrompt(QStringLiteral("t"), QStringLiteral("b"));
    library.addVersion(prompt, QStringLiteral("earlier"));
    const PromptEditorView& view = present(prompt);
    titleField(view).setFocus();
    QStringList names;
    for (int stop = 0; stop < 12; ++stop) {
        QWidget* focus = QApplication::focusWidget();
        ASSERT_TRUE(focus);
        names += focus->accessibleName();
        // In the body Tab is a character.
        const bool isBody = focus == &bodyField(view);
        QTest::keyClick(focus, Qt::Key_Tab, isBody ? Qt::ControlModifier : Qt::NoModifier);
    }
    EXPECT_EQ(names,
              (QStringList{QStringLiteral("Title"), QStringLiteral("Copy"), QStringLiteral("History"),
                           QStringLiteral("Work"), QStringLiteral("Prompt text"), QStringLiteral("Collapse Variables"),
                           QStringLiteral("Lexiwell"), QStringLiteral("Analyze"), QStringLiteral("Collapse Lexiwell"),
                           QStringLiteral("Delete"), QStringLiteral("Cancel"), QStringLiteral("Save")}));
    EXPECT_TRUE(titleField(view).hasFocus());
}

} // namespace Quillstacks
