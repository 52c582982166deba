// Copy, cut, paste and drags in the token editor.
#include "TokenFixture.h"

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>

namespace Quillstacks {
namespace {

class TokenClipboard : public TokenEditor {
protected:
    static QString clipboard() { return QApplication::clipboard()->text(); }
    void drop(const QString& text, int position) {
        QMimeData data;
        data.setText(text);
        QTextCursor cursor(view->document());
        cursor.setPosition(position);
        const QPoint at = view->cursorRect(cursor).center();
        QDragEnterEvent enter(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(view->viewport(), &enter);
        EXPECT_TRUE(enter.isAccepted());
        QDropEvent event(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(view->viewport(), &event);
    }
};

TEST_F(TokenClipboard, copyingATokenGivesItsPlaceholderText) {
    open(QStringLiteral("Dear {{ name }}, hello {topic}\r\n!"));
    press(Qt::Key_A, Qt::ControlModifier);
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(clipboard(), QStringLiteral("Dear {{ name }}, hello {topic}\r\n!"));
    select(5, 6);
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(clipboard(), QStringLiteral("{{ name }}"));
}

TEST_F(TokenClipboard, onlyPlainTextGoesThere) {
    open(QStringLiteral("a {{b}}"));
    press(Qt::Key_A, Qt::ControlModifier);
    press(Qt::Key_C, Qt::ControlModifier);
    const QMimeData* data = QApplication::clipboard()->mimeData();
    EXPECT_TRUE(data->hasText());
    EXPECT_FALSE(data->hasHtml());
    EXPECT_EQ(data->formats(), QStringList(QStringLiteral("text/plain")));
}

TEST_F(TokenClipboard, copyingAnEmptySelectionLeavesTheClipboard) {
    QApplication::clipboard()->setText(QStringLiteral("before"));
    open(QStringLiteral("a {{b}}"));
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(clipboard(), QStringLiteral("before"));
}

TEST_F(TokenClipboard, cuttingATokenTakesThePlaceholderAlong) {
    open(QStringLiteral("a {{ b }} c"));
    select(1, 3);
    press(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(clipboard(), QStringLiteral(" {{ b }}"));
    EXPECT_EQ(editor.text(), QStringLiteral("a c"));
    press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(editor.text(), QStringLiteral("a {{ b }} c"));
    EXPECT_EQ(tokens(), QStringList(QStringLiteral("b")));
}

TEST_F(TokenClipboard, droppedTextTurnsIntoTokens) {
    open(QStringLiteral("ab"));
    drop(QStringLiteral("{{x}}\r\n{y}"), 1);
    EXPECT_EQ(editor.text(), QStringLiteral("a{{x}}\r\n{y}b"));
    EXPECT_EQ(shown(), rebuilt(editor.text()));
    undo();
    EXPECT_EQ(editor.text(), QStringLiteral("ab"));
}

TEST_F(TokenClipboard, aDropMayCloseAPlaceholder) {
    open(QStringLiteral("{{ab}}!{{cd"), 0);
    drop(QStringLiteral("}}"), 6);
    EXPECT_EQ(shown(), QStringList(QStringLiteral(":⟨ab|{{ab}}⟩!⟨cd|{{cd}}⟩")));
}

} // namespace
} // namespace Quillstacks
