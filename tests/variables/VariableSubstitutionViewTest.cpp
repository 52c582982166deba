#include "FillInFixture.h"

#include "interface/Label.h"

#include <QApplication>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTextBlock>
#include <QTextLayout>

namespace Quillstacks {
namespace {

using namespace std::chrono_literals;

class VariableSubstitution : public FillInFixture {};

TEST_F(VariableSubstitution, aVariableWithARememberedValueOpensWithTheValueInItsField) {
    rememberValue(a, QStringLiteral("Ada"));
    auto* view = present(QStringLiteral("Dear {a}"));
    ASSERT_TRUE(view);
    EXPECT_EQ(view->inputField(a)->value(), QStringLiteral("Ada"));
    EXPECT_EQ(view->variableValues().value(a), QStringLiteral("Ada"));
    EXPECT_TRUE(button(view, "copyButton")->isEnabled());
}

TEST_F(VariableSubstitution, aVariableWithoutOneOpensEmptyWithCopyDisabled) {
    auto* view = present(QStringLiteral("Dear {a}"));
    EXPECT_EQ(view->inputField(a)->value(), QString());
    EXPECT_FALSE(view->allVariablesFilled());
    EXPECT_FALSE(button(view, "copyButton")->isEnabled());
}

TEST_F(VariableSubstitution, fieldsStandInAlphabeticalOrder) {
    auto* view = present(QStringLiteral("{zeta} {Beta} {alpha} {zeta}"));
    EXPECT_EQ(view->variables, (QStringList{QStringLiteral("Beta"), QStringLiteral("alpha"), QStringLiteral("zeta")}));
    const auto fields = view->findChildren<VariableInputField*>();
    ASSERT_EQ(fields.size(), 3);
    EXPECT_LT(fields[0]->mapTo(view, QPoint()).y(), fields[1]->mapTo(view, QPoint()).y());
    EXPECT_EQ(fields[0]->variable, QStringLiteral("Beta"));
}

TEST_F(VariableSubstitution, theFirstFieldTakesTheKeyboardATenthOfASecondAfterAppearing) {
    auto* view = present(QStringLiteral("{b} {a}"));
    button(view, "cancelButton")->setFocus();
    clock.advance(99ms);
    EXPECT_FALSE(view->inputField(a)->isTextFieldFocused());
    clock.advance(1ms);
    EXPECT_EQ(view->focusedField(), a);
    EXPECT_TRUE(view->inputField(a)->isTextFieldFocused());
    field(view, b)->setFocus();
    clock.advance(1s); // once only
    EXPECT_EQ(view->focusedField(), b);
}

TEST_F(VariableSubstitution, whoGoesOnToAnotherFieldWithinThatTimeStaysThere) {
    rememberValue(a, QStringLiteral("x"));
    for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Return}) {
        auto* view = present(QStringLiteral("{a} {b}"));
        QTest::keyClick(QApplication::focusWidget(), key);
        ASSERT_TRUE(view->inputField(b)->isTextFieldFocused());
        clock.advance(100ms);
        EXPECT_EQ(view->focusedField(), b);
        EXPECT_TRUE(view->inputField(b)->isTextFieldFocused());
        view->cancel();
    }
}

TEST_F(VariableSubstitution, aFieldThatTakesTheKeyboardBecomesTheFocusedOne) {
    auto* view = presentAndWait(QStringLiteral("{a} {b}"));
    QTest::mouseClick(field(view, b)->viewport(), Qt::LeftButton);
    EXPECT_EQ(view->focusedField(), b);
}

TEST_F(VariableSubstitution, pressingReturnInEveryFieldWalksTheFormAndCopiesInTheLast) {
    auto* view = presentAndWait(QStringLiteral("{b} and {a}"));
    type(view, a, QStringLiteral("one"));
    press(view, a, Qt::Key_Return);
    EXPECT_EQ(view->focusedField(), b);
    EXPECT_TRUE(view->inputField(b)->isTextFieldFocused());
    EXPECT_TRUE(completions.isEmpty());
    type(view, b, QStringLiteral("two"));
    press(view, b, Qt::Key_Return);
    EXPECT_EQ(completions, QStringList{QStringLiteral("two and one")});
}

TEST_F(VariableSubstitution, tabGoesToTheNextField) {
    auto* view = presentAndWait(QStringLiteral("{a}{b}"));
    type(view, a, QStringLiteral("x"));
    press(view, a, Qt::Key_Tab);
    EXPECT_EQ(view->inputField(a)->value(), QStringLiteral("x"));
    EXPECT_EQ(view->focusedField(), b);
}

TEST_F(VariableSubstitution, theEnterKeyOfTheKeypadSubmitsToo) {
    auto* view = presentAndWait(QStringLiteral("{a}"));
    type(view, a, QStringLiteral("x"));
    press(view, a, Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(completions, QStringList{QStringLiteral("x")});
}

TEST_F(VariableSubstitution, withOneFieldEmptyReturnInTheLastDoesNothingAndTheFocusDoesNotMove) {
    auto* view = presentAndWait(QStringLiteral("{a} {b}"));
    view->setFocusedField(b);
    type(view, b, QStringLiteral("two"));
    press(view, b, Qt::Key_Return);
    EXPECT_TRUE(completions.isEmpty());
    EXPECT_TRUE(isSheetOpen());
    EXPECT_EQ(view->focusedField(), b);
    EXPECT_TRUE(view->inputField(b)->isTextFieldFocused());
    EXPECT_EQ(rememberedValue(b), QString());
}

TEST_F(VariableSubstitution, submittingAVariableThatIsNotThereCompletes) {
    rememberValue(a, QStringLiteral("x"));
    auto* view = present(QStringLiteral("{a}"));
    view->submit(QStringLiteral("nobody"));
    EXPECT_EQ(completions, QStringList{QStringLiteral("x")});
}

TEST_F(VariableSubstitution, aValueOfOnlySpacesDoesNotCountAsFilled) {
    auto* view = present(QStringLiteral("{a}"));
    view->setVariableValue(a, QStringLiteral(" \n\t "));
    EXPECT_FALSE(view->allVariablesFilled());
    view->complete();
    EXPECT_TRUE(completions.isEmpty());
}

TEST_F(VariableSubstitution, aValueThatCountsIsInsertedAndRememberedUntrimmed) {
    auto* view = present(QStringLiteral("<{a}>"));
    view->setVariableValue(a, QStringLiteral(" Ada "));
    view->complete();
    EXPECT_EQ(completions, QStringList{QStringLiteral("< Ada >")});
    EXPECT_EQ(rememberedValue(a), QStringLiteral(" Ada "));
}

TEST_F(VariableSubstitution, withoutVariablesAllAreFilled) {
    const VariableSubstitutionView view(QString(), QStringLiteral("plain"), {}, {}, nullptr, nullptr);
    EXPECT_TRUE(view.allVariablesFilled());
    EXPECT_EQ(view.filledText(), QStringLiteral("plain"));
}

TEST_F(VariableSubstitution, completionRemembersAllValuesInOneWriteBeforeItHandsTheTextOver) {
    QString rememberedAtCompletion;
    VariableSubstitutionView view(
        QString(), QStringLiteral("{a}{b}"), {a, b}, {{a, QStringLiteral("1")}, {b, QStringLiteral("2")}},
        [&](const QString&) { rememberedAtCompletion = rememberedValue(a) + rememberedValue(b); }, nullptr);
    QSignalSpy changes(&*preferences, &Preferences::changed);
    QByteArray onDiskMeanwhile("unset");
    QObject::connect(&*preferences, &Preferences::changed, &view,
                     [&] { onDiskMeanwhile = preferences.fileContents(); });
    view.complete();
    EXPECT_EQ(rememberedAtCompletion, QStringLiteral("12"));
    EXPECT_EQ(changes.count(), 2);
    EXPECT_TRUE(onDiskMeanwhile.isEmpty()); // nothing was written between the two
    EXPECT_TRUE(preferences.fileContents().contains("var_b"));
}

TEST_F(VariableSubstitution, aSecondPressOfCopyWhileTheSheetGoesHandsNothingOverTwice) {
    rememberValue(a, QStringLiteral("x"));
    auto* view = present(QStringLiteral("{a}"));
    button(view, "copyButton")->click();
    view->complete();
    view->cancel();
    EXPECT_EQ(completions.size(), 1);
    EXPECT_EQ(cancellations, 0);
}

TEST_F(VariableSubstitution, clearEmptiesEveryFieldAndGoesToTheFirst) {
    rememberValue(a, QStringLiteral("1"));
    rememberValue(b, QStringLiteral("2"));
    auto* view = presentAndWait(QStringLiteral("{a}{b}"));
    view->setFocusedField(b);
    QTest::mouseClick(button(view, "clearButton"), Qt::LeftButton);
    EXPECT_EQ(view->variableValues().value(a), QString());
    EXPECT_EQ(view->variableValues().value(b), QString());
    EXPECT_EQ(field(view, b)->toPlainText(), QString());
    EXPECT_EQ(view->focusedField(), a);
    EXPECT_TRUE(view->inputField(a)->isTextFieldFocused());
    EXPECT_FALSE(button(view, "copyButton")->isEnabled());
}

TEST_F(VariableSubstitution, clearFollowedByCancelLeavesTheRememberedValuesAsTheyWere) {
    rememberValue(a, QStringLiteral("kept"));
    auto* view = present(QStringLiteral("{a}"));
    view->clear();
    EXPECT_EQ(rememberedValue(a), QStringLiteral("kept"));
    view->cancel();
    EXPECT_EQ(rememberedValue(a), QStringLiteral("kept"));
    EXPECT_EQ(cancellations, 1);
}

TEST_F(VariableSubstitution, thePreviewShowsTheTextWithEmptyPlaceholdersGone) {
    auto* view = present(QStringLiteral("Dear {a}, {{b}} { a }"));
    button(view, "previewButton")->click();
    ASSERT_TRUE(view->showPreview());
    auto* preview = view->findChild<QWidget*>(QStringLiteral("FilledTextPreview"));
    EXPECT_EQ(preview->findChild<QTextEdit*>()->toPlainText(), QStringLiteral("Dear , {} { a }"));
    view->setVariableValue(a, QStringLiteral("Ada"));
    EXPECT_EQ(preview->findChild<QTextEdit*>()->toPlainText(), QStringLiteral("Dear Ada, {} { a }"));
}

TEST_F(VariableSubstitution, clearingWorksThePreviewOutOnce) {
    auto* view = present(QStringLiteral("{a}{b}{c}"));
    for (const auto* name : {u"a", u"b", u"c"})
        view->setVariableValue(QString::fromUtf16(name), QStringLiteral("value"));
    view->togglePreview();
    auto* edit = view->findChild<QWidget*>(QStringLiteral("FilledTextPreview"))->findChild<QTextEdit*>();
    QStringList texts;
    QObject::connect(edit, &QTextEdit::textChanged, view, [&] {
        if (texts.isEmpty() || texts.last() != edit->toPlainText())
            texts << edit->toPlainText();
    });
    view->clear();
    EXPECT_EQ(texts, QStringList{QString()});
}

TEST_F(VariableSubstitution, thePreviewStaysWhereItIsScrolledToWhileTheTextChanges) {
    auto* view = present(QStringLiteral("line\n").repeated(2000) + QStringLiteral("{a}"));
    view->togglePreview();
    auto* preview = view->findChild<QWidget*>(QStringLiteral("FilledTextPreview"));
    auto* edit = preview->findChild<QTextEdit*>();
    ASSERT_TRUE(QTest::qWaitFor([&] { return edit->height() > 100 && edit->verticalScrollBar()->maximum() > 5000; }));
    edit->verticalScrollBar()->setValue(5000);
    view->setVariableValue(a, QStringLiteral("Ada"));
    EXPECT_EQ(edit->verticalScrollBar()->value(), 5000);
}

TEST_F(VariableSubstitution, aLongTextsPreviewIsNotLaidOutToItsEnd) {
    auto* view = present(QStringLiteral("some words of a line\n").repeated(100'000) + QStringLiteral("{a}"));
    view->togglePreview();
    auto* preview = view->findChild<QWidget*>(QStringLiteral("FilledTextPreview"));
    const QTextDocument* document = preview->findChild<QTextEdit*>()->document();
    EXPECT_GT(preview->sizeHint().height(), -1);
    EXPECT_EQ(document->lastBlock().layout()->lineCount(), 0);
}

TEST_F(VariableSubstitution, theButtonShowsAndHidesThePreview) {
    auto* view = present(QStringLiteral("{a}"));
    auto* toggle = button(view, "previewButton");
    EXPECT_EQ(toggle->text(), QStringLiteral("Show Preview"));
    toggle->click();
    EXPECT_EQ(toggle->text(), QStringLiteral("Hide Preview"));
    toggle->click();
    EXPECT_EQ(toggle->text(), QStringLiteral("Show Preview"));
    EXPECT_FALSE(view->showPreview());
}

TEST_F(VariableSubstitution, thePreviewIsNeverHigherThan150) {
    auto* view = present(QStringLiteral("line\n").repeated(200) + QStringLiteral("{a}"));
    view->togglePreview();
    auto* preview = view->findChild<QWidget*>(QStringLiteral("FilledTextPreview"));
    const auto isUnfolded = [&] {
        return preview->height() > 100 && preview->sizeHint().height() == preview->height();
    };
    ASSERT_TRUE(QTest::qWaitFor(isUnfolded));
    EXPECT_LE(preview->findChild<QTextEdit*>()->height(), 150);
}

TEST_F(VariableSubstitution, theCountHasAnSUnlessItIsOne) {
    EXPECT_EQ(present(QStringLiteral("{a}"))->countText(), QStringLiteral("1 variable detected in this prompt"));
    EXPECT_EQ(present(QStringLiteral("{a}{b}"))->countText(), QStringLiteral("2 variables detected in this prompt"));
}

TEST_F(VariableSubstitution, theHeaderNamesThePromptInQuotes) {
    auto* view = present(QStringLiteral("{a}"), QStringLiteral("Weekly & <b>"));
    QStringList texts;
    for (const auto* label : view->findChildren<Label*>())
        texts << label->text();
    EXPECT_TRUE(texts.contains(QStringLiteral("Fill in Variables")));
    EXPECT_TRUE(texts.contains(QStringLiteral("for \"Weekly & <b>\"")));
}

TEST_F(VariableSubstitution, aVariableFromAJsonKeyGetsAFieldAndLeavesTheTextUnchanged) {
    auto* view = present(QStringLiteral("{ \"a\": 1 }"));
    ASSERT_EQ(view->variables, QStringList{a});
    view->setVariableValue(a, QStringLiteral("value"));
    view->complete();
    EXPECT_EQ(completions, QStringList{QStringLiteral("{ \"a\": 1 }")});
    EXPECT_EQ(rememberedValue(a), QStringLiteral("value"));
}

TEST_F(VariableSubstitution, theListIsAtMost400HighAndScrolls) {
    QString body;
    for (int i = 0; i < 40; ++i)
        body += QStringLiteral("{v%1}").arg(i);
    host.resize(900, 1400);
    auto* view = present(body);
    QTest::qWait(0);
    auto* area = view->findChild<QAbstractScrollArea*>(QStringLiteral("fieldList"));
    ASSERT_TRUE(area);
    EXPECT_EQ(area->height(), 400);
    EXPECT_EQ(view->width(), 520);
}

TEST_F(VariableSubstitution, inALowWindowTheListGivesWay) {
    host.resize(680, 420);
    QString body;
    for (int i = 0; i < 12; ++i)
        body += QStringLiteral("{v%1}").arg(i);
    auto* view = present(body);
    QTest::qWait(0);
    const QRect card = Sheet::top(&host)->cardGeometry();
    EXPECT_GE(card.top(), 16);
    EXPECT_LE(card.bottom(), host.height() - 16);
    const auto* copy = button(view, "copyButton");
    EXPECT_TRUE(host.rect().contains(QRect(copy->mapTo(&host, QPoint()), copy->size())));
}

} // namespace
} // namespace Quillstacks
