#include "HotkeySettingsFixture.h"

#include "hotkey/ShortcutField.h"
#include "support/Text.h"

#include <QShortcut>

namespace Quillstacks {
namespace {

using namespace std::chrono_literals;

class HotkeyRecorder : public HotkeySettingsFixture {
protected:
    [[nodiscard]] ShortcutField* field() const { return window.findChild<ShortcutField*>(); }
};

TEST_F(HotkeyRecorder, showsTheStoredShortcutWhileNothingWasRecorded) {
    open();
    EXPECT_EQ(shownShortcut(), text("⇧⌘Space"));
    EXPECT_TRUE(button("Record"));
    EXPECT_FALSE(button("Stop"));
}

TEST_F(HotkeyRecorder, nameAndToolTipSpellTheShortcutForAPcKeyboard) {
    open();
    EXPECT_EQ(field()->accessibleName(), text("Ctrl+Shift+Space"));
    EXPECT_EQ(field()->toolTip(), text("Ctrl+Shift+Space"));
    startRecording();
    strike(Strokes::command1);
    EXPECT_EQ(field()->accessibleName(), text("Ctrl+1"));
    EXPECT_EQ(field()->toolTip(), text("Ctrl+1"));
}

TEST_F(HotkeyRecorder, plainKDuringRecordingIsSwallowedAndRecordingStaysOn) {
    open();
    startRecording();
    strike(Strokes::plainK);
    EXPECT_TRUE(view->isRecording());
    EXPECT_EQ(editor->text(), QString());
    EXPECT_EQ(storedKeyCode(), 49);
}

TEST_F(HotkeyRecorder, keysReachTheWindowAgainAfterARecording) {
    open();
    startRecording();
    strike(Strokes::commandK);
    strike(Strokes::plainK);
    EXPECT_EQ(editor->text(), text("k"));
}

/// Notes the presses and releases that come to it.
class Notes final : public QObject {
public:
    QList<int> pressed, released;
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        if (event->type() == QEvent::KeyPress)
            pressed += static_cast<QKeyEvent*>(event)->key();
        if (event->type() == QEvent::KeyRelease)
            released += static_cast<QKeyEvent*>(event)->key();
        return false;
    }
};

TEST_F(HotkeyRecorder, shiftAlonePassesThroughWithoutEffect) {
    open();
    Notes notes;
    editor->installEventFilter(&notes);
    startRecording();
    strike({KEY_LEFTSHIFT, Qt::Key_Shift, Qt::NoModifier});
    strike({KEY_LEFTCTRL, Qt::Key_Control, Qt::ShiftModifier});
    strike({KEY_CAPSLOCK, Qt::Key_CapsLock, Qt::ControlModifier});
    EXPECT_TRUE(view->isRecording());
    EXPECT_EQ(notes.pressed, (QList<int>{Qt::Key_Shift, Qt::Key_Control, Qt::Key_CapsLock}));
    EXPECT_EQ(storedKeyCode(), 49);
}

TEST_F(HotkeyRecorder, aReleaseOfAKeyPassesThrough) {
    open();
    Notes notes;
    editor->installEventFilter(&notes);
    startRecording();
    strike(Strokes::plainK);
    EXPECT_TRUE(notes.pressed.isEmpty());
    EXPECT_EQ(notes.released, QList<int>{Qt::Key_K});
}

TEST_F(HotkeyRecorder, oddity_commandAIsSwallowedAndRecordingStaysOn) {
    open();
    editor->setText(text("words"));
    startRecording();
    strike(Strokes::commandA);
    strike({KEY_A, Qt::Key_A, Strokes::allFourK.modifiers});
    EXPECT_TRUE(view->isRecording());
    EXPECT_FALSE(editor->hasSelectedText());
    EXPECT_EQ(storedKeyCode(), 49);
}

TEST_F(HotkeyRecorder, oddity_itIsThePlaceOfTheLetterAThatIsRefusedWhateverTheLayoutHasThere) {
    open();
    startRecording();
    strike({KEY_A, Qt::Key_Q, Qt::ControlModifier});
    EXPECT_TRUE(view->isRecording());
    strike({KEY_Q, Qt::Key_A, Qt::ControlModifier});
    EXPECT_FALSE(view->isRecording());
    EXPECT_EQ(storedKeyCode(), 12);
    EXPECT_EQ(shownShortcut(), text("⌘Q"));
}

TEST_F(HotkeyRecorder, oddity_command1IsAcceptedAndShowsAsAQuestionMark) {
    open();
    startRecording();
    strike(Strokes::command1);
    EXPECT_FALSE(view->isRecording());
    EXPECT_EQ(storedKeyCode(), 18);
    EXPECT_EQ(storedModifiers(), 0x100000);
    EXPECT_EQ(shownShortcut(), text("⌘?"));
}

TEST_F(HotkeyRecorder, withAllFourModifiersTheGlyphsComeInTheirOrder) {
    open();
    startRecording();
    strike(Strokes::allFourK);
    EXPECT_EQ(storedModifiers(), 0x1E0000);
    EXPECT_EQ(shownShortcut(), text("⌃⌥⇧⌘K"));
}

TEST_F(HotkeyRecorder, everyModifierAloneMakesAShortcut) {
    open();
    const std::tuple<Qt::KeyboardModifier, qint64, const char*> modifiers[] = {
        {Qt::ShiftModifier, 0x20000, "⇧K"},
        {Qt::MetaModifier, 0x40000, "⌃K"},
        {Qt::AltModifier, 0x80000, "⌥K"},
        {Qt::ControlModifier, 0x100000, "⌘K"},
    };
    for (const auto& [modifier, flag, shown] : modifiers) {
        startRecording();
        strike({KEY_K, Qt::Key_K, modifier});
        EXPECT_EQ(storedModifiers(), flag);
        EXPECT_EQ(shownShortcut(), text(shown));
    }
}

TEST_F(HotkeyRecorder, keypadAndLevelModifiersFallAway) {
    open();
    startRecording();
    strike({KEY_KP5, Qt::Key_5, Qt::KeypadModifier});
    strike({KEY_K, Qt::Key_K, Qt::GroupSwitchModifier});
    EXPECT_TRUE(view->isRecording()) << "no modifier is left of either";
    strike({KEY_KP5, Qt::Key_5, Qt::KeypadModifier | Qt::ControlModifier});
    EXPECT_EQ(storedModifiers(), 0x100000);
    EXPECT_EQ(storedKeyCode(), 87);
}

TEST_F(HotkeyRecorder, aKeyThatNoCodeNamesIsRefused) {
    open();
    startRecording();
    strike({KEY_CALC, Qt::Key_Calculator, Qt::ControlModifier});
    EXPECT_TRUE(view->isRecording());
    EXPECT_EQ(storedKeyCode(), 49);
}

TEST_F(HotkeyRecorder, plainEscapeIsRefusedLikeAnyOtherKey) {
    open();
    startRecording();
    strike({KEY_ESC, Qt::Key_Escape, Qt::NoModifier});
    EXPECT_TRUE(view->isRecording());
}

TEST_F(HotkeyRecorder, escapeWithAModifierIsRecorded) {
    open();
    startRecording();
    strike({KEY_ESC, Qt::Key_Escape, Qt::ControlModifier});
    EXPECT_FALSE(view->isRecording());
    EXPECT_EQ(shownShortcut(), text("⌘Escape"));
}

TEST_F(HotkeyRecorder, tabReturnAndSpaceDoNothingDuringARecording) {
    open();
    Button* record = button("Record");
    record->setFocus(Qt::TabFocusReason);
    strike({KEY_ENTER, Qt::Key_Return, Qt::NoModifier});
    ASSERT_TRUE(view->isRecording()) << "the button was pressed by key";
    strike({KEY_ENTER, Qt::Key_Return, Qt::NoModifier});
    strike({KEY_SPACE, Qt::Key_Space, Qt::NoModifier});
    strike({KEY_TAB, Qt::Key_Tab, Qt::NoModifier});
    EXPECT_TRUE(view->isRecording());
    EXPECT_TRUE(record->hasFocus());
}

TEST_F(HotkeyRecorder, aShortcutOfTheWindowCanBeRecordedAndDoesNotFire) {
    open();
    int fired = 0;
    QShortcut shortcut(QKeySequence(Qt::CTRL | Qt::Key_N), &window);
    QObject::connect(&shortcut, &QShortcut::activated, &window, [&fired] { ++fired; });
    startRecording();
    const KeyStroke commandN{KEY_N, Qt::Key_N, Qt::ControlModifier};
    EXPECT_TRUE(sendKey(window.windowHandle(), QEvent::ShortcutOverride, commandN)) << "claimed before the shortcut";
    // The whole way of a key within the toolkit, which does not know where on the keyboard it is.
    QTest::keyClick(window.windowHandle(), Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(fired, 0);
    EXPECT_TRUE(view->isRecording()) << "a key of no place is refused";
    strike(commandN);
    EXPECT_EQ(storedKeyCode(), 45);
    EXPECT_FALSE(sendKey(window.windowHandle(), QEvent::ShortcutOverride, commandN)) << "left alone after it";
    QTest::keyClick(window.windowHandle(), Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(fired, 1);
}

TEST_F(HotkeyRecorder, keysOfEveryWindowOfTheProgramAreTaken) {
    open();
    QLineEdit other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    HotkeySettingsFixture::window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    startRecording();
    Quillstacks::strike(other.windowHandle(), Strokes::plainK);
    EXPECT_EQ(other.text(), QString());
    Quillstacks::strike(other.windowHandle(), Strokes::commandK);
    EXPECT_FALSE(view->isRecording());
    EXPECT_EQ(storedKeyCode(), 40);
}

TEST_F(HotkeyRecorder, startingLetsGoOfTheHotKey) {
    open();
    HotkeyManager::shared().registerHotkey();
    startRecording();
    EXPECT_TRUE(desktop.hotKeys.empty());
    EXPECT_TRUE(desktop.handlers.empty());
}

TEST_F(HotkeyRecorder, startingForgetsTheLastCaptureAndShowsTheStoredShortcut) {
    open();
    startRecording();
    strike(Strokes::commandK);
    globalHotkeyKeyCodePreference().set(46);
    EXPECT_EQ(shownShortcut(), text("⌘K")) << "what was recorded here";
    startRecording();
    EXPECT_EQ(shownShortcut(), text("⌘M")) << "what is stored";
}

TEST_F(HotkeyRecorder, stoppingByTheButtonPutsTheStoredShortcutBackAfterATenthOfASecond) {
    open();
    HotkeyManager::shared().registerHotkey();
    startRecording();
    click(button("Stop"));
    EXPECT_FALSE(view->isRecording());
    EXPECT_TRUE(button("Record"));
    clock.advance(99ms);
    EXPECT_TRUE(desktop.hotKeys.empty());
    clock.advance(1ms);
    ASSERT_EQ(desktop.hotKeys.size(), 1U);
    EXPECT_EQ(desktop.hotKeys.begin()->second.keyCode, 49U);
    EXPECT_EQ(desktop.hotKeys.begin()->second.modifiers, 0x300U);
}

TEST_F(HotkeyRecorder, oddity_aRecordingGoesOnWhenItsViewHasGone) {
    open();
    startRecording();
    delete view;
    strike(Strokes::plainK);
    EXPECT_EQ(editor->text(), QString()) << "still swallowed";
    EXPECT_TRUE(desktop.hotKeys.empty());
    strike(Strokes::commandK);
    EXPECT_EQ(storedKeyCode(), 40);
    ASSERT_EQ(desktop.hotKeys.size(), 1U);
    EXPECT_EQ(desktop.hotKeys.begin()->second.keyCode, 40U);
    strike(Strokes::plainK);
    EXPECT_EQ(editor->text(), text("k"));
}

TEST_F(HotkeyRecorder, monitorsOfEarlierRecordingsStandDown) {
    open();
    for (int round = 0; round < 3; ++round) {
        startRecording();
        click(button("Stop"));
    }
    clock.advance(1s);
    desktop.calls.clear();
    startRecording();
    strike(Strokes::commandK);
    EXPECT_EQ(registrations().size(), 1) << "told once";
    strike(Strokes::plainK);
    EXPECT_EQ(editor->text(), text("k"));
}

TEST_F(HotkeyRecorder, theFieldsColoursTellWhetherItRecords) {
    open();
    const auto corner = [this] { return field()->grab().toImage().pixelColor(field()->width() / 2, 0); };
    const QColor accent = Theme::shared().color(ColorRole::accent);
    EXPECT_NE(corner(), accent);
    startRecording();
    EXPECT_EQ(corner(), accent);
    EXPECT_EQ(field()->height(), textLineHeight(TextStyle::body) + 20);
}

} // namespace
} // namespace Quillstacks
