#include "Fixture.h"
#include "interface/Chip.h"
#include "interface/KeyCap.h"
#include "interface/SegmentedPicker.h"
#include "interface/Stepper.h"
#include "interface/Switch.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QPainter>
#include <QSignalSpy>

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

TEST_F(ChipOf, aRowTakesAsManyAsFitAndAlwaysTheFirst) {
    QImage image(200, 30, QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&image);
    const ChipStyle style = ChipStyle::row();
    const QList<std::pair<QString, QColor>> tags{{QStringLiteral("Code"), Qt::red},
                                                 {QStringLiteral("Review"), Qt::blue}};
    const int both = style.width(QStringLiteral("Code")) + 6 + style.width(QStringLiteral("Review"));
    EXPECT_EQ(style.paintRow(painter, {}, both, 6, tags), 2);
    EXPECT_EQ(style.paintRow(painter, {}, both - 1, 6, tags), 1);
    EXPECT_EQ(style.paintRow(painter, {}, 10, 6, tags), 1);
}

class KeyCapOf : public InterfaceTest {};

TEST_F(KeyCapOf, signsAreSpelledOutForAPcKeyboard) {
    EXPECT_EQ(KeyText::spelledOut(QString::fromUtf16(u"⇧⌘Space")), QStringLiteral("Ctrl+Shift+Space"));
    EXPECT_EQ(KeyText::spelledOut(QString::fromUtf16(u"↩")), QStringLiteral("Return"));
    EXPECT_EQ(KeyText::spelledOut(QString::fromUtf16(u"↑↓")), QStringLiteral("Up Down"));
    EXPECT_EQ(KeyText::spelledOut(QStringLiteral("esc")), QStringLiteral("esc"));
    EXPECT_EQ(KeyText::spelledOut(QString::fromUtf16(u"⌃⌥⇧⌘")), QStringLiteral("Ctrl+Super+Alt+Shift"));
    EXPECT_EQ(KeyCap(QString::fromUtf16(u"⌘N")).accessibleName(), QStringLiteral("Ctrl+N"));
}

} // namespace
} // namespace Quillstacks
