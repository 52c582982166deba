#include "PromptEditorFixture.h"
#include "PromptTextEditor.h"

namespace Quillstacks {

TEST_F(PromptEditor, theSheetIsAtLeast1100By720WhereTheWindowIsLargeEnoughAndFitsWhereItIsNot) {
    const auto card = [this](const QSize& size) {
        window.resize(size);
        QCoreApplication::processEvents();
        return Sheet::top(&window)->cardGeometry();
    };
    present();
    EXPECT_EQ(card(QSize(1440, 900)).size(), QSize(1160, 860));
    EXPECT_GE(card(QSize(1280, 720)).width(), 1100);
    EXPECT_EQ(card(QSize(1280, 720)).height(), 720);
    EXPECT_TRUE(QRect(0, 0, 900, 500).contains(card(QSize(900, 500))));
}

TEST_F(PromptEditor, inAWindowThatIsTooSmallTheSheetScrollsToWhatTheKeyboardReaches) {
    const PromptEditorView& view = present();
    window.resize(600, 400);
    QCoreApplication::processEvents();
    QWidget* cancel = visibleButton(view, QStringLiteral("Cancel"));
    const auto place = [&](const QWidget* part) { return QRect(part->mapTo(&window, QPoint()), part->size()); };
    EXPECT_FALSE(window.rect().contains(place(cancel)));
    titleField(view).setFocus();
    QTest::keyClick(&titleField(view), Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(cancel->hasFocus());
    EXPECT_TRUE(window.rect().contains(place(cancel)));
    EXPECT_FALSE(window.rect().contains(place(&titleField(view))));
    QTest::keyClick(cancel, Qt::Key_Tab);
    EXPECT_TRUE(titleField(view).hasFocus());
    EXPECT_GE(place(&titleField(view)).left(), 0);
    EXPECT_GE(place(&titleField(view)).top(), 0);
}

TEST_F(PromptEditor, theTitleFieldIs40High) {
    const PromptEditorView& view = present();
    EXPECT_EQ(titleField(view).height(), 40);
    EXPECT_GE(view.findChild<PromptTextEditor*>()->height(), 360);
}

TEST_F(PromptEditor, thePlaceholderStandsInAnEmptyBodyOnly) {
    open();
    const auto isShown = [&] { return placeholder(*editor)->isVisibleTo(editor.get()); };
    EXPECT_TRUE(isShown());
    editor->setEditorBody(QStringLiteral("a"));
    EXPECT_FALSE(isShown());
    editor->setEditorBody(QString());
    EXPECT_TRUE(isShown());
    EXPECT_EQ(titleField(*editor).placeholderText(), QStringLiteral("Title"));
}

TEST_F(PromptEditor, thePlaceholderIsHiddenWhileATextIsComposed) {
    const PromptEditorView& view = present();
    EXPECT_TRUE(placeholder(view)->isVisible());
    compose(bodyField(view), QStringLiteral("n"));
    EXPECT_FALSE(placeholder(view)->isVisible());
    compose(bodyField(view), QString());
    EXPECT_TRUE(placeholder(view)->isVisible());
}

TEST_F(PromptEditor, theBodysLinesFollowTheDesktopsFont) {
    const QFont before = QApplication::font();
    QFont font = before;
    font.setPixelSize(14);
    QApplication::setFont(font);
    open();
    EXPECT_EQ(bodyField(*editor).lineHeight(), 24);
    font.setPixelSize(28);
    QApplication::setFont(font);
    EXPECT_EQ(bodyField(*editor).lineHeight(), 48);
    EXPECT_EQ(placeholder(*editor)->height(), 48);
    EXPECT_GT(titleField(*editor).sizeHint().height(), 40);
    QApplication::setFont(before);
}

} // namespace Quillstacks
