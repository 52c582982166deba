#include "interface/Sheet.h"

#include "Fixture.h"
#include "interface/Button.h"
#include "interface/IconButton.h"
#include "interface/ScrollArea.h"
#include "interface/SegmentedPicker.h"
#include "interface/TextField.h"

#include <QAccessible>
#include <QAction>
#include <QGraphicsEffect>
#include <QLabel>
#include <QMenu>
#include <QShortcut>
#include <QSignalSpy>
#include <QVBoxLayout>

namespace Quillstacks {
namespace {

/// A window with a field beneath, and contents with two fields, a "Cancel" and a default "Save".
class SheetOf : public InterfaceTest {
protected:
    struct Content {
        std::unique_ptr<QWidget> widget = std::make_unique<QWidget>();
        TextField* first = new TextField(QStringLiteral("First"));
        TextField* second = new TextField(QStringLiteral("Second"));
        Button* save = new Button(QStringLiteral("Save"), Button::Kind::prominent);

        Content() {
            auto* column = new QVBoxLayout(widget.get());
            for (QWidget* child : std::initializer_list<QWidget*>{first, second, save})
                column->addWidget(child);
            save->setDefault(true);
        }
    };
    SheetOf() {
        beneath = new TextField(QStringLiteral("Beneath"));
        beneath->setParent(&window);
        beneath->setGeometry(350, 280, 100, 32);
        showWindow();
        beneath->setFocus();
    }
    Sheet* present(Content& content, Sheet::Options options = {}) {
        return Sheet::present(&window, std::move(content.widget), std::move(options));
    }
    /// A key as the window system delivers it: to whatever has the keyboard.
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(window.windowHandle(), key, modifiers);
    }

    TextField* beneath;
};

TEST_F(SheetOf, theFirstFieldGetsTheKeyboardAndGivesItBack) {
    Content content;
    Sheet* sheet = present(content);
    EXPECT_TRUE(content.first->hasFocus());
    EXPECT_EQ(Sheet::of(content.first), sheet);
    EXPECT_TRUE(Sheet::covers(beneath));
    EXPECT_FALSE(Sheet::covers(content.first));
    QSignalSpy closed(sheet, &Sheet::closed);
    sheet->dismiss();
    sheet->dismiss();
    EXPECT_EQ(closed.count(), 1);
    EXPECT_TRUE(beneath->hasFocus());
    EXPECT_FALSE(Sheet::covers(beneath));
}

TEST_F(SheetOf, keysGoToTheSheetOnly) {
    Content content;
    present(content);
    press(Qt::Key_X);
    EXPECT_EQ(content.first->text(), QStringLiteral("x"));
    QTest::keyClick(beneath, Qt::Key_Y);
    EXPECT_EQ(beneath->text(), QString());
}

TEST_F(SheetOf, aClickOnAButtonOrBesideItLeavesTheKeyboardInTheField) {
    Content content;
    auto* check = new IconButton(QStringLiteral("checkmark"), QStringLiteral("Check"));
    content.widget->layout()->addWidget(check);
    auto* choice =
        new SegmentedPicker(QStringLiteral("Choice"), {{QStringLiteral("A"), {}}, {QStringLiteral("B"), {}}});
    content.widget->layout()->addWidget(choice);
    content.save->setDefault(false);
    Sheet* sheet = present(content);
    content.second->setFocus();
    const auto clickAt = [this](const QWidget* widget, const QPoint& position) {
        QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, widget->mapTo(&window, position));
        press(Qt::Key_X);
    };
    clickAt(content.save, content.save->rect().center());
    clickAt(check, check->rect().center());
    clickAt(choice, QPoint(choice->width() - 20, 15));
    EXPECT_EQ(choice->selection(), 1);
    clickAt(sheet, QPoint(5, 5));
    EXPECT_EQ(content.second->text(), QStringLiteral("xxxx"));
}

TEST_F(SheetOf, tabStaysWithin) {
    Content content;
    present(content);
    for (QWidget* widget :
         std::initializer_list<QWidget*>{content.second, content.save, content.first, content.second}) {
        press(Qt::Key_Tab);
        EXPECT_EQ(QApplication::focusWidget(), widget);
    }
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(QApplication::focusWidget(), content.first);
}

TEST_F(SheetOf, whatAsksForTheKeyboardBeneathGetsItAtTheEnd) {
    TextField other;
    other.setParent(&window);
    other.show();
    Content content;
    Sheet* sheet = present(content);
    other.setFocus();
    EXPECT_TRUE(content.first->hasFocus());
    sheet->dismiss();
    EXPECT_TRUE(other.hasFocus());
}

TEST_F(SheetOf, shortcutsBeneathAreInert) {
    QShortcut shortcut(QKeySequence(Qt::CTRL | Qt::Key_N), &window);
    QAction action(&window);
    action.setShortcut(QKeySequence(Qt::CTRL | Qt::Key_M));
    window.addAction(&action);
    QSignalSpy activations(&shortcut, &QShortcut::activated);
    QSignalSpy triggers(&action, &QAction::triggered);
    press(Qt::Key_N, Qt::ControlModifier);
    press(Qt::Key_M, Qt::ControlModifier);
    EXPECT_EQ(activations.count(), 1);
    EXPECT_EQ(triggers.count(), 1);
    Content content;
    Sheet* sheet = present(content);
    press(Qt::Key_N, Qt::ControlModifier);
    press(Qt::Key_M, Qt::ControlModifier);
    EXPECT_EQ(activations.count(), 1);
    EXPECT_EQ(triggers.count(), 1);
    sheet->dismiss();
    press(Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(activations.count(), 2);
}

TEST_F(SheetOf, theSameShortcutWithinIsMeantEachTime) {
    QShortcut under(QKeySequence(Qt::CTRL | Qt::Key_S), &window);
    Content content;
    QShortcut within(QKeySequence(Qt::CTRL | Qt::Key_S), content.widget.get());
    QSignalSpy activationsUnder(&under, &QShortcut::activated);
    QSignalSpy activationsWithin(&within, &QShortcut::activated);
    present(content);
    for (int i = 0; i < 3; ++i)
        press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(activationsUnder.count(), 0);
    EXPECT_EQ(activationsWithin.count(), 3);
}

TEST_F(SheetOf, theMouseReachesNothingBeneath) {
    Button button(QStringLiteral("Beneath"), Button::Kind::bordered, &window);
    button.setGeometry(5, 5, 100, 30);
    button.show();
    QSignalSpy clicks(&button, &QAbstractButton::clicked);
    Content content;
    Sheet* sheet = present(content);
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, {20, 15});
    EXPECT_EQ(clicks.count(), 0);
    sheet->dismiss();
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, {20, 15});
    EXPECT_EQ(clicks.count(), 1);
}

TEST_F(SheetOf, returnPressesTheDefaultButton) {
    Content content;
    QSignalSpy clicks(content.save, &QAbstractButton::clicked);
    present(content);
    press(Qt::Key_Return);
    EXPECT_EQ(clicks.count(), 1);
    content.save->setEnabled(false);
    press(Qt::Key_Return);
    EXPECT_EQ(clicks.count(), 1);
}

TEST_F(SheetOf, returnWithAModifierPressesNothingButThatOfTheKeypadDoes) {
    Content content;
    QSignalSpy clicks(content.save, &QAbstractButton::clicked);
    present(content);
    for (const auto modifier : {Qt::ControlModifier, Qt::AltModifier, Qt::ShiftModifier})
        press(Qt::Key_Return, modifier);
    EXPECT_EQ(clicks.count(), 0);
    press(Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(clicks.count(), 1);
}

TEST_F(SheetOf, anOpenMenuClosesWhenASheetComes) {
    QMenu menu;
    menu.addAction(QStringLiteral("Entry"));
    menu.popup(window.mapToGlobal(QPoint(10, 10)));
    EXPECT_TRUE(menu.isVisible());
    Content content;
    present(content);
    EXPECT_FALSE(menu.isVisible());
}

TEST_F(SheetOf, aLayoutThatChangesNoPlaceRepaintsNothingOfTheWindow) {
    Content content;
    Sheet* sheet = present(content);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !sheet->findChild<QGraphicsEffect*>(); }, 2000));
    QTest::qWait(0);
    PaintCount paints(sheet);
    QEvent request(QEvent::LayoutRequest);
    QApplication::sendEvent(sheet->content(), &request);
    QTest::qWait(0);
    EXPECT_EQ(paints.count, 0);
    window.resize(700, 500);
    QTest::qWait(0);
    EXPECT_GE(paints.count, 1);
}

TEST_F(SheetOf, escapeDoesWhatTheScreenBindsItTo) {
    Content ignoring;
    Sheet* sheet = present(ignoring);
    press(Qt::Key_Escape);
    EXPECT_FALSE(sheet->isDismissed());
    sheet->dismiss();

    Content closing;
    Sheet::Options options;
    options.escape = Sheet::Escape::dismisses;
    sheet = present(closing, options);
    press(Qt::Key_Escape);
    EXPECT_TRUE(sheet->isDismissed());

    Content calling;
    int calls = 0;
    options.onEscape = [&calls] { ++calls; };
    sheet = present(calling, options);
    press(Qt::Key_Escape);
    EXPECT_EQ(calls, 1);
    EXPECT_FALSE(sheet->isDismissed());
}

TEST_F(SheetOf, sheetsStackAndTheLowerOneIsInert) {
    Content lower;
    Content upper;
    Sheet* under = present(lower);
    lower.second->setFocus();
    Sheet* over = Sheet::present(lower.save, std::move(upper.widget), {});
    EXPECT_EQ(Sheet::top(&window), over);
    EXPECT_TRUE(Sheet::covers(lower.first));
    press(Qt::Key_X);
    EXPECT_EQ(upper.first->text(), QStringLiteral("x"));
    over->dismiss();
    EXPECT_TRUE(lower.second->hasFocus());
    under->dismiss();
    EXPECT_TRUE(beneath->hasFocus());
}

TEST_F(SheetOf, endingTheLowerOneEndsThoseAbove) {
    Content lower;
    Content upper;
    Sheet* under = present(lower);
    Sheet* over = present(upper);
    QSignalSpy closed(over, &Sheet::closed);
    under->dismiss();
    EXPECT_EQ(closed.count(), 1);
    EXPECT_TRUE(beneath->hasFocus());
}

TEST_F(SheetOf, itIsADialogWithItsName) {
    Content content;
    Sheet::Options options;
    options.accessibleName = QStringLiteral("Edit Prompt");
    QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(present(content, options));
    EXPECT_EQ(accessible->role(), QAccessible::Dialog);
    EXPECT_EQ(accessible->text(QAccessible::Name), QStringLiteral("Edit Prompt"));
}

TEST_F(SheetOf, itStandsInTheMiddleAndNeverOutgrowsItsWindow) {
    Content content;
    Sheet::Options options;
    options.minimumSize = {700, 500};
    options.preferredSize = {900, 700};
    Sheet* sheet = present(content, options);
    EXPECT_EQ(sheet->cardGeometry().size(), QSize(768, 568)); // the margin is kept while the smallest size allows
    EXPECT_EQ(sheet->cardGeometry().center(), window.rect().center());
    window.resize(600, 400);
    QCoreApplication::processEvents();
    EXPECT_EQ(sheet->cardGeometry(), QRect(0, 0, 600, 400)); // the smallest size takes the window
    window.resize(1200, 900);
    QCoreApplication::processEvents();
    EXPECT_EQ(sheet->cardGeometry().size(), QSize(900, 700));
}

TEST_F(SheetOf, aScrollingPartGivesWayBeforeTheContentScrolls) {
    auto content = std::make_unique<QWidget>();
    auto* column = new QVBoxLayout(content.get());
    auto* scroll = new ScrollArea;
    auto* tall = new QWidget;
    tall->setMinimumHeight(2000);
    scroll->setContent(tall);
    column->addWidget(scroll);
    auto* button = new Button(QStringLiteral("Close"));
    column->addWidget(button);
    Sheet* sheet = Sheet::present(&window, std::move(content), {});
    QCoreApplication::processEvents();
    EXPECT_EQ(sheet->cardGeometry().height(), 568);
    EXPECT_TRUE(sheet->rect().contains(QRect(button->mapTo(sheet, QPoint()), button->size())));
}

TEST_F(SheetOf, itGrowsAndShrinksWithItsContent) {
    Content content;
    Sheet* sheet = present(content);
    const int before = sheet->cardGeometry().height();
    content.second->hide();
    QCoreApplication::processEvents();
    EXPECT_LT(sheet->cardGeometry().height(), before);
}

TEST_F(SheetOf, itCoversAnAreaOfItsWindowWhereAsked) {
    Content content;
    Sheet::Options options;
    options.area = [] { return QRect(100, 100, 400, 300); };
    Sheet* sheet = present(content, options);
    EXPECT_TRUE(QRect(116, 116, 368, 268).contains(sheet->cardGeometry()));
    EXPECT_EQ(sheet->cardGeometry().center(), QRect(100, 100, 400, 300).center());
}

TEST_F(SheetOf, itGoesWithItsHost) {
    auto host = std::make_unique<QWidget>(&window);
    Content content;
    QPointer<Sheet> sheet = Sheet::present(host.get(), std::move(content.widget), {});
    host.reset();
    EXPECT_TRUE(!sheet || sheet->isDismissed());
    EXPECT_FALSE(Sheet::covers(beneath));
}

} // namespace
} // namespace Quillstacks
