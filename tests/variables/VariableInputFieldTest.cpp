#include "FillInFixture.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>

namespace Quillstacks {
namespace {

class VariableInput : public FillInFixture {
protected:
    VariableInput() {
        input.resize(400, 60);
        input.onSubmit = [this] { ++submits; };
        input.onFocus = [this] { ++focuses; };
        input.show();
        input.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&input));
        edit->setFocus();
    }
    VariableInputField input{QStringLiteral("topic"), QString()};
    QTextEdit* edit = input.findChild<QTextEdit*>();
    int submits = 0;
    int focuses = 0;
};

TEST_F(VariableInput, itsPlaceholderNamesTheVariable) {
    EXPECT_EQ(input.placeholder(), QStringLiteral("Enter value for topic"));
    EXPECT_EQ(edit->accessibleName(), QStringLiteral("topic"));
}

TEST_F(VariableInput, returnSubmitsAndLeavesTheTextAlone) {
    QTest::keyClicks(edit, QStringLiteral("ab"));
    QTest::keyClick(edit, Qt::Key_Return);
    EXPECT_EQ(submits, 1);
    EXPECT_EQ(input.value(), QStringLiteral("ab"));
}

TEST_F(VariableInput, aReturnThatIsHeldDownDoesNotSubmitAgain) {
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"), true);
    QApplication::sendEvent(edit, &held);
    EXPECT_EQ(submits, 0);
    EXPECT_EQ(input.value(), QString());
}

TEST_F(VariableInput, returnWithAModifierBeginsANewLine) {
    QString expected = QStringLiteral("a");
    QTest::keyClicks(edit, QStringLiteral("a"));
    for (const Qt::KeyboardModifier modifier : {Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier}) {
        QTest::keyClick(edit, Qt::Key_Return, modifier);
        expected += QLatin1Char('\n');
    }
    EXPECT_EQ(input.value(), expected);
    EXPECT_EQ(submits, 0);
}

TEST_F(VariableInput, pastedLineEndsAreKeptExactly) {
    const QString text = QStringLiteral("one\r\ntwo\rthree\u2028four\u2029five\u0085six\u00A0");
    QGuiApplication::clipboard()->setText(text);
    edit->paste();
    EXPECT_EQ(input.value(), text);
    EXPECT_EQ(submits, 0);
}

TEST_F(VariableInput, aRememberedValueComesBackExactly) {
    const QString text = QStringLiteral(" one\r\ntwo\u2028 ");
    const VariableInputField other(QStringLiteral("x"), text);
    EXPECT_EQ(other.value(), text);
    EXPECT_TRUE(other.isFilled());
}

TEST_F(VariableInput, itGrowsFromOneToFiveLines) {
    const int one = input.sizeHint().height();
    int before = one;
    for (int line = 2; line <= 5; ++line) {
        QTest::keyClick(edit, Qt::Key_Return, Qt::ShiftModifier);
        const int now = input.sizeHint().height();
        EXPECT_GT(now, before) << line;
        before = now;
    }
    QTest::keyClick(edit, Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(input.sizeHint().height(), before);
}

TEST_F(VariableInput, onlyMoreThanWhiteSpaceCountsAsFilled) {
    EXPECT_FALSE(input.isFilled());
    input.setValue(QStringLiteral(" \u00A0\n"));
    EXPECT_FALSE(input.isFilled());
    input.setValue(QStringLiteral(" x"));
    EXPECT_TRUE(input.isFilled());
}

TEST_F(VariableInput, aClearedValueCanBeTakenBack) {
    QTest::keyClicks(edit, QStringLiteral("long work"));
    input.setValue(QString());
    edit->undo();
    EXPECT_EQ(input.value(), QStringLiteral("long work"));
}

TEST_F(VariableInput, takingTheKeyboardIsTold) {
    edit->clearFocus();
    focuses = 0;
    input.takeFocus();
    EXPECT_EQ(focuses, 1);
    EXPECT_TRUE(input.isTextFieldFocused());
}

TEST_F(VariableInput, everyChangeIsTold) {
    QStringList told;
    QObject::connect(&input, &VariableInputField::valueChanged, &input, [&](const QString& value) { told << value; });
    QTest::keyClicks(edit, QStringLiteral("ab"));
    input.setValue(QStringLiteral("c"));
    EXPECT_EQ(told.last(), QStringLiteral("c"));
    EXPECT_TRUE(told.contains(QStringLiteral("ab")));
}

} // namespace
} // namespace Quillstacks
