#include "interface/TextField.h"

#include "Fixture.h"
#include "interface/PlainTextEdit.h"
#include "interface/TextArea.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QSignalSpy>

namespace Quillstacks {
namespace {

class TextFieldOf : public InterfaceTest {};
class TextAreaOf : public InterfaceTest {};

TEST_F(TextFieldOf, itTakesAnyLength) {
    TextField field;
    const QString text(200'000, QLatin1Char('x'));
    field.setText(text);
    EXPECT_EQ(field.text(), text);
}

TEST_F(TextFieldOf, typedTextIsTold) {
    TextField field(QStringLiteral("Search"));
    field.setParent(&window);
    showWindow();
    field.setFocus();
    QSignalSpy edits(&field, &QLineEdit::textEdited);
    QTest::keyClicks(&field, QStringLiteral("code"));
    EXPECT_EQ(field.text(), QStringLiteral("code"));
    EXPECT_EQ(edits.count(), 4);
}

TEST_F(TextFieldOf, theCaretHasTheAccentColor) {
    TextField field;
    field.setParent(&window);
    field.resize(200, 32);
    showWindow();
    field.setFocus();
    const QImage image = field.grab().toImage();
    bool found = false;
    for (int x = 8; x < 16; ++x) {
        const QColor pixel = image.pixelColor(x, 16);
        found |= pixel.blue() > 150 && pixel.blue() > pixel.green();
    }
    EXPECT_TRUE(found);
}

TEST_F(TextFieldOf, theReleaseOfAKeyDrawsNothing) {
    TextField field;
    field.setParent(&window);
    showWindow();
    field.setFocus();
    PaintCount paints(&field);
    QTest::keyPress(&field, Qt::Key_A);
    QTest::qWait(0);
    const int drawn = paints.count;
    EXPECT_GT(drawn, 0);
    QTest::keyRelease(&field, Qt::Key_A);
    QTest::qWait(0);
    EXPECT_EQ(paints.count, drawn);
    EXPECT_EQ(field.text(), QStringLiteral("a"));
}

TEST_F(TextFieldOf, heightsAreThoseOfItsVariants) {
    EXPECT_EQ(TextField().sizeHint().height(), 32);
    EXPECT_EQ(TextField({}, TextField::Variant::title).sizeHint().height(), 40);
}

TEST_F(TextAreaOf, keepsWhateverIsPasted) {
    TextArea area;
    area.setParent(&window);
    showWindow();
    area.setFocus();
    const QString text = QStringLiteral("a\r\nb\rc\n") + QChar(0xA0) + QChar(0x2029) + QChar(0xFDD0);
    QGuiApplication::clipboard()->setText(text);
    area.paste();
    EXPECT_EQ(area.text(), text);
    area.selectAll();
    area.copy();
    EXPECT_EQ(QGuiApplication::clipboard()->text(), text);
    area.undo();
    EXPECT_EQ(area.text(), QString());
}

TEST_F(TextAreaOf, returnIsALineFeedWhateverStandsBefore) {
    TextArea area;
    area.setParent(&window);
    showWindow();
    area.setText(QStringLiteral("a\r\nb"));
    area.moveCursor(QTextCursor::End);
    QTest::keyClick(&area, Qt::Key_Return);
    QTest::keyClick(&area, Qt::Key_Return, Qt::ShiftModifier);
    QTest::keyClicks(&area, QStringLiteral("c"));
    EXPECT_EQ(area.text(), QStringLiteral("a\r\nb\n\nc"));
}

TEST_F(TextAreaOf, itGrowsToItsLargestHeightAndNoFurther) {
    TextArea area({}, 1, 5);
    area.resize(300, 40);
    const int line = area.lineHeight();
    const int one = area.sizeHint().height();
    area.setText(QStringLiteral("1\n2\n3"));
    EXPECT_EQ(area.sizeHint().height(), one + 2 * line);
    area.setText(QStringLiteral("1\n2\n3\n4\n5\n6\n7\n8"));
    EXPECT_EQ(area.sizeHint().height(), one + 4 * line);
    area.setText(QString());
    EXPECT_EQ(area.sizeHint().height(), one);
}

TEST_F(TextAreaOf, aLineThatWrapsCountsAsTheLinesThatItTakes) {
    TextArea area;
    area.setParent(&window);
    area.resize(200, 40);
    showWindow();
    const int one = area.sizeHint().height();
    area.setText(QStringLiteral("word ").repeated(16));
    EXPECT_GE(area.sizeHint().height(), one + area.lineHeight());
}

TEST_F(TextAreaOf, tabLeavesIt) {
    TextArea area;
    area.setParent(&window);
    TextField next;
    next.setParent(&window);
    showWindow();
    area.setFocus();
    QTest::keyClick(&area, Qt::Key_Tab);
    EXPECT_TRUE(next.hasFocus());
    EXPECT_EQ(area.text(), QString());
}

} // namespace
} // namespace Quillstacks
