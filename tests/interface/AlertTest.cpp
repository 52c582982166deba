#include "interface/Alert.h"

#include "Fixture.h"
#include "interface/Button.h"
#include "interface/FocusRing.h"
#include "interface/Sheet.h"

namespace Quillstacks {
namespace {

class AlertOf : public InterfaceTest {
protected:
    AlertOf() { showWindow(); }
    Sheet* show(bool destructive) {
        return Alert::show(
            &window,
            {QStringLiteral("Delete Prompt?"), QStringLiteral("This action cannot be undone."),
             QStringLiteral("Delete"), destructive},
            [this] { ++confirmed; }, [this] { ++cancelled; });
    }
    static Button* button(Sheet* sheet, const QString& title) {
        for (Button* candidate : sheet->findChildren<Button*>())
            if (candidate->text() == title)
                return candidate;
        return nullptr;
    }
    void press(Qt::Key key) { QTest::keyClick(window.windowHandle(), key); }

    int confirmed = 0;
    int cancelled = 0;
};

TEST_F(AlertOf, theConfirmingButtonConfirmsOnce) {
    Sheet* sheet = show(true);
    Button* confirm = button(sheet, QStringLiteral("Delete"));
    confirm->click();
    confirm->click();
    EXPECT_EQ(confirmed, 1);
    EXPECT_EQ(cancelled, 0);
    EXPECT_TRUE(sheet->isDismissed());
}

TEST_F(AlertOf, escapeAnswersCancel) {
    show(true);
    press(Qt::Key_Escape);
    EXPECT_EQ(confirmed, 0);
    EXPECT_EQ(cancelled, 1);
}

TEST_F(AlertOf, returnDoesNotDestroyUnlessThatButtonHasTheKeyboard) {
    show(true);
    press(Qt::Key_Return);
    EXPECT_EQ(confirmed, 0);
    EXPECT_EQ(cancelled, 1);

    Sheet* sheet = show(true);
    button(sheet, QStringLiteral("Delete"))->setFocus(Qt::TabFocusReason);
    press(Qt::Key_Return);
    EXPECT_EQ(confirmed, 1);
}

TEST_F(AlertOf, cancelShowsItsRingWhereAKeyOpenedTheAlert) {
    const Button control(QStringLiteral("Any")); // the first control of a program begins to watch the input
    press(Qt::Key_Delete);
    Sheet* sheet = show(true);
    EXPECT_TRUE(FocusRing::isShownFor(button(sheet, QStringLiteral("Cancel"))));
    sheet->dismiss();
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, {5, 5});
    EXPECT_FALSE(FocusRing::isShownFor(button(show(true), QStringLiteral("Cancel"))));
}

TEST_F(AlertOf, returnConfirmsWhereNothingIsLost) {
    show(false);
    press(Qt::Key_Return);
    EXPECT_EQ(confirmed, 1);
}

TEST_F(AlertOf, theButtonsAreEqualAndTheConfirmingOneStandsAtTheRight) {
    Sheet* sheet = show(true);
    const Button* cancel = button(sheet, QStringLiteral("Cancel"));
    const Button* confirm = button(sheet, QStringLiteral("Delete"));
    EXPECT_EQ(sheet->cardGeometry().width(), 340);
    EXPECT_EQ(cancel->width(), confirm->width());
    EXPECT_LT(cancel->x(), confirm->x());
    EXPECT_EQ(cancel->height(), 32);
}

TEST_F(AlertOf, theAnswerCanShowTheNextAlert) {
    Sheet* next = nullptr;
    Sheet* sheet =
        Alert::show(&window, {QStringLiteral("One?"), {}, QStringLiteral("Yes")}, [&] { next = show(false); });
    button(sheet, QStringLiteral("Yes"))->click();
    ASSERT_NE(next, nullptr);
    EXPECT_EQ(Sheet::top(&window), next);
}

} // namespace
} // namespace Quillstacks
