#include "Fixture.h"
#include "interface/Chip.h"
#include "interface/EdgeFade.h"
#include "interface/KeyCap.h"
#include "interface/Label.h"
#include "interface/RowText.h"
#include "interface/ScrollArea.h"
#include "interface/SegmentedPicker.h"
#include "interface/Stepper.h"
#include "interface/Switch.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QElapsedTimer>
#include <QPainter>
#include <QScrollBar>
#include <QSignalSpy>
#include <QVBoxLayout>

namespace Quillstacks {
namespace {

class SegmentedPickerOf : public InterfaceTest {
protected:
    SegmentedPicker picker{
        QStringLiteral("Appearance"),
        {{QStringLiteral("System"), {}}, {QStringLiteral("Light"), {}}, {QStringLiteral("Dark"), {}}},
        &window};
    QSignalSpy choices{&picker, &SegmentedPicker::selectionChanged};
};

TEST_F(SegmentedPickerOf, aClickChooses) {
    picker.resize(300, 30);
    showWindow();
    QTest::mouseClick(picker.childAt(250, 15), Qt::LeftButton);
    EXPECT_EQ(picker.selection(), 2);
    ASSERT_EQ(choices.count(), 1);
    EXPECT_EQ(choices.front().front().toInt(), 2);
}

TEST_F(SegmentedPickerOf, arrowsMoveWithinTheEnds) {
    picker.resize(300, 30);
    showWindow();
    auto* first = picker.findChildren<QAbstractButton*>().front();
    first->setFocus();
    QTest::keyClick(first, Qt::Key_Left);
    EXPECT_EQ(picker.selection(), 0);
    QTest::keyClick(first, Qt::Key_Right);
    EXPECT_EQ(picker.selection(), 1);
    EXPECT_TRUE(picker.findChildren<QAbstractButton*>()[1]->hasFocus());
    EXPECT_EQ(choices.count(), 1);
}

TEST_F(SegmentedPickerOf, settingTheSelectionTellsNothing) {
    picker.setSelection(2);
    EXPECT_EQ(picker.selection(), 2);
    EXPECT_EQ(choices.count(), 0);
}

TEST_F(SegmentedPickerOf, segmentsAreRadioButtonsToAssistiveTools) {
    picker.setSelection(1);
    auto* button = picker.findChildren<QAbstractButton*>()[1];
    QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(button);
    EXPECT_EQ(accessible->role(), QAccessible::RadioButton);
    EXPECT_EQ(accessible->text(QAccessible::Name), QStringLiteral("Light"));
    EXPECT_TRUE(accessible->state().checked);
}

TEST_F(SegmentedPickerOf, besideFieldsItIsAsHighAsThey) {
    EXPECT_EQ(picker.sizeHint().height(), 30);
    picker.setSize(SegmentedPicker::Size::field);
    EXPECT_EQ(picker.sizeHint().height(), 40);
    picker.resize(306, 40);
    showWindow();
    const auto buttons = picker.findChildren<QAbstractButton*>();
    EXPECT_EQ(buttons.front()->geometry(), QRect(3, 3, 100, 34));
    EXPECT_EQ(buttons.back()->geometry(), QRect(203, 3, 100, 34));
}

class ScrollAreaOf : public InterfaceTest {};

TEST_F(ScrollAreaOf, fadesOnlyWhereThereIsMore) {
    ScrollArea area(&window);
    area.setTopFade(ColorRole::sheet);
    area.setBottomFade(ColorRole::sheet);
    auto* content = new QWidget;
    content->setMinimumHeight(900);
    area.setContent(content);
    area.resize(200, 300);
    showWindow();
    auto fades = area.findChildren<EdgeFade*>();
    ASSERT_EQ(fades.size(), 2);
    std::ranges::sort(fades, {}, &QWidget::y);
    EXPECT_EQ(fades[0]->geometry(), QRect(0, 0, 200, 28));
    EXPECT_EQ(fades[1]->geometry(), QRect(0, 256, 200, 44));
    const auto shown = [&] { return std::pair(fades[0]->isVisible(), fades[1]->isVisible()); };
    EXPECT_EQ(shown(), std::pair(false, true));
    area.verticalScrollBar()->setValue(100);
    EXPECT_EQ(shown(), std::pair(true, true));
    area.verticalScrollBar()->setValue(600);
    EXPECT_EQ(shown(), std::pair(true, false));
    // From the ground above to what lies beneath; shown here over the window's own, which is darker.
    const QImage top = fades[0]->grab().toImage();
    EXPECT_NEAR(top.pixelColor(5, 0).red(), Theme::shared().color(ColorRole::sheet).red(), 1);
    EXPECT_NEAR(top.pixelColor(5, 27).red(), Theme::shared().color(ColorRole::window).red(), 1);
}

TEST_F(ScrollAreaOf, contentIsAsHighAsItsTextAtThisWidth) {
    ScrollArea area(&window);
    auto* content = new QWidget;
    auto* column = new QVBoxLayout(content);
    column->setContentsMargins(0, 0, 0, 0);
    auto* label = new Label(QStringLiteral("word ").repeated(60));
    label->setMaximumLines(0);
    column->addWidget(label);
    area.setContent(content);
    window.setLayout(new QVBoxLayout);
    window.layout()->setContentsMargins(0, 0, 0, 0);
    window.layout()->addWidget(&area);
    showWindow({2400, 40});
    EXPECT_EQ(label->heightForWidth(2400), label->lineHeight());
    EXPECT_EQ(area.verticalScrollBar()->maximum(), 0) << "one line needs no scrolling";
    window.resize(200, 40);
    EXPECT_EQ(content->height(), label->heightForWidth(200));
    EXPECT_EQ(area.verticalScrollBar()->maximum(), content->height() - 40);
    label->setText(QStringLiteral("short"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return area.verticalScrollBar()->maximum() == 0; }, 2000));
}

class StepperOf : public InterfaceTest {
protected:
    Stepper stepper{QStringLiteral("Versions"), 0, 3, 1, &window};
    QSignalSpy changes{&stepper, &Stepper::valueChanged};
};

TEST_F(StepperOf, theHalvesRaiseAndLowerWithinBounds) {
    stepper.resize(stepper.sizeHint());
    stepper.setValue(2);
    showWindow();
    QTest::mouseClick(&stepper, Qt::LeftButton, {}, {13, 5});
    EXPECT_EQ(stepper.value(), 3);
    QTest::mouseClick(&stepper, Qt::LeftButton, {}, {13, 5});
    EXPECT_EQ(stepper.value(), 3);
    QTest::mouseClick(&stepper, Qt::LeftButton, {}, {13, 27});
    EXPECT_EQ(stepper.value(), 2);
    EXPECT_EQ(changes.count(), 2);
}

TEST_F(StepperOf, arrowKeysDoTheSame) {
    showWindow();
    stepper.setFocus();
    QTest::keyClick(&stepper, Qt::Key_Up);
    QTest::keyClick(&stepper, Qt::Key_Up);
    QTest::keyClick(&stepper, Qt::Key_Down);
    EXPECT_EQ(stepper.value(), 1);
}

TEST_F(StepperOf, aValueOutOfBoundsComesWithinAtTheNextStep) {
    stepper.setValue(50);
    showWindow();
    QTest::keyClick(&stepper, Qt::Key_Down);
    EXPECT_EQ(stepper.value(), 3);
}

class SwitchOf : public InterfaceTest {};

TEST_F(SwitchOf, clickAndSpaceToggle) {
    Switch control(QStringLiteral("Launch at login"), &window);
    control.resize(control.sizeHint());
    showWindow();
    QTest::mouseClick(&control, Qt::LeftButton);
    EXPECT_TRUE(control.isChecked());
    control.setFocus(Qt::TabFocusReason);
    QTest::keyClick(&control, Qt::Key_Space);
    EXPECT_FALSE(control.isChecked());
    QTest::keyClick(&control, Qt::Key_Return);
    EXPECT_FALSE(control.isChecked()) << "a sheet's default button answers Return";
    QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(&control);
    EXPECT_EQ(accessible->role(), QAccessible::CheckBox);
    EXPECT_EQ(accessible->text(QAccessible::Name), QStringLiteral("Launch at login"));
    accessible->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(control.isChecked());
    EXPECT_TRUE(accessible->state().checked);
}

class ChipOf : public InterfaceTest {};

TEST_F(ChipOf, aClickToggles) {
    Chip chip(QStringLiteral("R&D"), Qt::red, &window);
    chip.resize(chip.sizeHint());
    showWindow();
    QTest::mouseClick(&chip, Qt::LeftButton);
    EXPECT_TRUE(chip.isChecked());
    EXPECT_TRUE(chip.shortcut().isEmpty());
}

TEST_F(ChipOf, onlyTheBeginningOfAHugeNameIsLookedAt) {
    const QString huge(1'000'000, QLatin1Char('n'));
    const ChipStyle style = ChipStyle::selector();
    QImage image(200, 30, QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&image);
    QElapsedTimer timer;
    timer.start();
    EXPECT_EQ(style.width(huge), style.width(startOfLine(huge)));
    style.paint(painter, image.rect(), huge, Qt::red, false, Qt::white);
    // To measure the whole takes seconds; this leaves room for the slowest machine.
    EXPECT_LT(timer.elapsed(), 250);
}

TEST_F(ChipOf, inARowThatFitsEachHasItsOwnWidth) {
    const ChipStyle style = ChipStyle::row();
    const QStringList names{QStringLiteral("Code"), QStringLiteral("Review")};
    const QList<qreal> own{qreal(style.width(names[0])), qreal(style.width(names[1]))};
    EXPECT_EQ(style.widths(names, own[0] + 6 + own[1], 6), own);
    EXPECT_EQ(style.widths(names, 1000, 6), own);
}

TEST_F(ChipOf, inARowThatIsTooNarrowTheWidestAreShortenedAndNoneIsLeftOut) {
    const ChipStyle style = ChipStyle::row();
    const QStringList names{QStringLiteral("A name of quite some length"), QStringLiteral("C"),
                            QStringLiteral("Another name of about that length")};
    const QList<qreal> shared = style.widths(names, 200, 6);
    ASSERT_EQ(shared.size(), 3);
    EXPECT_EQ(shared[1], style.width(names[1]));
    EXPECT_EQ(shared[0], shared[2]);
    EXPECT_LE(shared[0] + shared[1] + shared[2] + 12, 200);
    EXPECT_GT(shared[0] + shared[1] + shared[2] + 12, 197);
    EXPECT_EQ(style.widths({names[0]}, 90, 6), QList<qreal>{90});
}

TEST_F(ChipOf, aRowThatIsTooNarrowShowsTheDotOfEveryTag) {
    QImage image(100, 30, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter painter(&image);
    const QString name = QStringLiteral("A name of quite some length");
    ChipStyle::row().paintRow(painter, {}, 100, 6, {{name, Qt::red}, {name, Qt::green}, {name, Qt::blue}});
    painter.end();
    for (const QColor& dot : {QColor(Qt::red), QColor(Qt::green), QColor(Qt::blue)}) {
        bool found = false;
        for (int x = 0; x < image.width() && !found; ++x)
            for (int y = 0; y < image.height(); ++y)
                found = found || image.pixelColor(x, y) == dot;
        EXPECT_TRUE(found) << qPrintable(dot.name());
    }
}

class KeyCapOf : public InterfaceTest {};

TEST_F(KeyCapOf, signsAreSpelledOutForAPcKeyboard) {
    EXPECT_EQ(KeyText::spelledOut(QString::fromUtf16(u"⇧⌘Space")), QStringLiteral("Ctrl+Shift+Space"));
    EXPECT_EQ(KeyText::spelledOut(QString::fromUtf16(u"↩")), QStringLiteral("Return"));
    EXPECT_EQ(KeyText::spelledOut(QString::fromUtf16(u"↑↓")), QStringLiteral("Up Down"));
    EXPECT_EQ(KeyText::spelledOut(QStringLiteral("esc")), QStringLiteral("esc"));
    EXPECT_EQ(KeyText::spelledOut(QString::fromUtf16(u"⌃⌥⇧⌘")), QStringLiteral("Ctrl+Super+Alt+Shift"));
    EXPECT_EQ(KeyText::spelledOut(QString::fromUtf16(u"⇧⌘Space (default)")),
              QStringLiteral("Ctrl+Shift+Space (default)"));
    EXPECT_EQ(KeyText::spelledOut(QString::fromUtf16(u"P or ⌘N")), QStringLiteral("P or Ctrl+N"));
    EXPECT_EQ(KeyCap(QString::fromUtf16(u"⌘N")).accessibleName(), QStringLiteral("Ctrl+N"));
    EXPECT_EQ(KeyCap(QString::fromUtf16(u"⌘N")).toolTip(), QStringLiteral("Ctrl+N"));
    EXPECT_EQ(KeyCap(QStringLiteral("esc")).toolTip(), QString());
}

} // namespace
} // namespace Quillstacks
