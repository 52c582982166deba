#include "FillInFixture.h"

#include <memory>

namespace Quillstacks {
namespace {

using namespace std::chrono_literals;

class FillInFlow : public FillInFixture {};

TEST_F(FillInFlow, escapeCancels) {
    auto* view = presentAndWait(QStringLiteral("{a}"));
    type(view, a, QStringLiteral("typed"));
    press(view, a, Qt::Key_Escape);
    EXPECT_EQ(cancellations, 1);
    EXPECT_TRUE(completions.isEmpty());
    EXPECT_FALSE(isSheetOpen());
}

TEST_F(FillInFlow, theCancelButtonAndTheCrossCancel) {
    button(present(QStringLiteral("{a}")), "cancelButton")->click();
    EXPECT_EQ(cancellations, 1);
    button(present(QStringLiteral("{a}")), "closeButton")->click();
    EXPECT_EQ(cancellations, 2);
    EXPECT_FALSE(isSheetOpen());
}

TEST_F(FillInFlow, copyHandsTheFilledTextOverAndCloses) {
    rememberValue(a, QStringLiteral("Ada"));
    auto* view = present(QStringLiteral("{{a}}"));
    QTest::mouseClick(button(view, "copyButton"), Qt::LeftButton);
    EXPECT_EQ(completions, QStringList{QStringLiteral("{Ada}")}); // the brace that stays is meant
    EXPECT_FALSE(isSheetOpen());
}

TEST_F(FillInFlow, aValueTypedAndCancelledIsGoneTheNextTimeAndTheOlderOneShows) {
    rememberValue(a, QStringLiteral("older"));
    auto* view = presentAndWait(QStringLiteral("{a}"));
    view->setVariableValue(a, QStringLiteral("newer"));
    view->cancel();
    EXPECT_EQ(present(QStringLiteral("{a}"))->inputField(a)->value(), QStringLiteral("older"));
}

TEST_F(FillInFlow, twoSheetsForTwoPromptsWithTheSameVariableShowTheSameRememberedValue) {
    auto* first = present(QStringLiteral("Dear {a}"));
    first->setVariableValue(a, QStringLiteral("Ada"));
    first->complete();
    EXPECT_EQ(present(QStringLiteral("{a}, {b}"))->inputField(a)->value(), QStringLiteral("Ada"));
}

TEST_F(FillInFlow, theVariablesNameWithAndWithoutACapitalHaveTwoValues) {
    const QString upper = QStringLiteral("Name");
    const QString lower = QStringLiteral("name");
    auto* view = present(QStringLiteral("{Name} {name}"));
    view->setVariableValue(upper, QStringLiteral("1"));
    view->setVariableValue(lower, QStringLiteral("2"));
    view->complete();
    EXPECT_EQ(rememberedValue(upper), QStringLiteral("1"));
    EXPECT_EQ(rememberedValue(lower), QStringLiteral("2"));
}

TEST_F(FillInFlow, theSheetGoesWithItsHostAndCallsNobody) {
    auto inner = std::make_unique<QWidget>(&host);
    inner->show();
    presentFillIn(
        inner.get(), QString(), QStringLiteral("{a}"), [this](const QString& text) { completions << text; },
        [this] { ++cancellations; });
    ASSERT_TRUE(isSheetOpen());
    inner.reset();
    EXPECT_FALSE(isSheetOpen());
    clock.advance(1s);
    EXPECT_EQ(cancellations, 0);
    EXPECT_TRUE(completions.isEmpty());
}

TEST_F(FillInFlow, aSheetThatClosesWithinATenthOfASecondLeavesThePendingFocusWithoutEffect) {
    present(QStringLiteral("{a}"))->cancel();
    clock.advance(1s);
    EXPECT_FALSE(isSheetOpen());
}

TEST_F(FillInFlow, theSheetKeepsItsDistanceFromTheAreaThatItIsGiven) {
    const QRect area(100, 60, 600, 400);
    QString body;
    for (int i = 0; i < 20; ++i)
        body += QStringLiteral("{v%1}").arg(i);
    presentFillIn(
        &host, QString(), body, [](const QString&) {}, [] {}, {[area] { return area; }, 16});
    QTest::qWait(0);
    const QRect card = Sheet::top(&host)->cardGeometry();
    EXPECT_TRUE(area.adjusted(16, 16, -16, -16).contains(card)) << card.y() << ' ' << card.height();
}

} // namespace
} // namespace Quillstacks
