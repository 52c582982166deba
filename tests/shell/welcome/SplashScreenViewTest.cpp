#include "CommandRow.h"

#include "hotkey/HotkeyRecorderView.h"
#include "hotkey/HotkeySettingsView.h"
#include "hotkey/ShortcutField.h"
#include "interface/KeyCap.h"
#include "interface/ScrollArea.h"
#include "interface/StatusLine.h"
#include "interface/SymbolImage.h"
#include "support/ShownSymbol.h"
#include "WelcomeFixture.h"

#include <QFile>
#include <QScrollBar>

#include <algorithm>
#include <limits>

namespace Quillstacks {
namespace {

using namespace std::chrono_literals;

class Welcome : public WelcomeFixture {
protected:
    static ShortcutField* field() { return view()->findChild<ShortcutField*>(); }
    static StatusLine* notice() { return view()->findChild<StatusLine*>(); }
    void startRecording() {
        click(button("Change"));
        ASSERT_TRUE(view()->isRecordingHotkey());
        desktop.calls.clear();
    }
    /// Whether one of the pictures is this symbol, `size` points wide.
    static bool hasSymbol(const char* name, int size, ColorRole role) {
        const auto images = view()->findChildren<SymbolImage*>();
        return std::ranges::any_of(images, [&](SymbolImage* image) {
            return showsSymbol(*image, QString::fromLatin1(name), size, Theme::shared().color(role));
        });
    }
    static QRect place(const QWidget* widget) { return {widget->mapTo(view(), QPoint(0, 0)), widget->size()}; }
};

TEST_F(Welcome, saysWhereTheProgramIsAndWhichKeysItHas) {
    open();
    EXPECT_EQ(
        texts(),
        (QStringList{QStringLiteral("Welcome to Quillstacks"), QStringLiteral("Access your prompts from the menu bar"),
                     QStringLiteral("Set Your Quick Access Shortcut"),
                     QStringLiteral("Choose a keyboard shortcut to instantly access your prompts from anywhere."),
                     QStringLiteral("Other Shortcuts"), QStringLiteral("New Prompt"),
                     QStringLiteral("Create a new prompt"), QStringLiteral("Settings"),
                     QStringLiteral("Configure preferences")}));
    EXPECT_TRUE(button("Got it, let's go!"));
}

TEST_F(Welcome, itsLinesHaveTheirSymbolsAndKeys) {
    open();
    const auto rows = view()->findChildren<CommandRow*>();
    ASSERT_EQ(rows.size(), 2);
    EXPECT_EQ(rows[0]->content.icon, QStringLiteral("plus.circle"));
    EXPECT_EQ(rows[0]->content.shortcut, QString::fromUtf16(u"⌘N"));
    EXPECT_EQ(rows[0]->findChild<KeyCap*>()->toolTip(), QStringLiteral("Ctrl+N"));
    EXPECT_EQ(rows[1]->content.icon, QStringLiteral("gearshape"));
    EXPECT_EQ(rows[1]->content.shortcut, QString::fromUtf16(u"⌘,"));
    EXPECT_EQ(rows[1]->findChild<KeyCap*>()->height(), textLineHeight(TextStyle::monoCaption) + 2 * 3);
}

TEST_F(Welcome, itsPartsHaveTheirSymbols) {
    desktop.trusted = false;
    PermissionManager::shared().refreshPermission();
    open();
    EXPECT_TRUE(hasSymbol("circle.dotted.circle.fill", 56, ColorRole::accent));
    EXPECT_TRUE(hasSymbol("keyboard.fill", 20, ColorRole::text2));
    EXPECT_TRUE(hasSymbol("plus.circle", 19, ColorRole::text2));
    EXPECT_TRUE(hasSymbol("gearshape", 19, ColorRole::text2));
    EXPECT_TRUE(hasSymbol("exclamationmark.triangle.fill", 19, ColorRole::orange));
}

TEST_F(Welcome, whileRecordingTheFieldHasAPurpleEdge) {
    open();
    const auto edge = [] { return field()->grab().toImage().pixelColor(field()->width() / 2, 0); };
    const QColor purple = Theme::shared().color(ColorRole::purple);
    EXPECT_NE(edge(), purple);
    click(button("Change"));
    EXPECT_EQ(edge(), purple);
}

TEST_F(Welcome, aStoredNumberThatIsNoKeyEndsTheProcess) {
    globalHotkeyKeyCodePreference().set(-1);
    EXPECT_DEATH(SplashScreenView({}, {}), "stored key code cannot be shown: -1");
    globalHotkeyKeyCodePreference().set(65536);
    EXPECT_DEATH(SplashScreenView({}, {}), "stored key code cannot be shown: 65536");
    globalHotkeyKeyCodePreference().set(65535);
    globalHotkeyModifiersPreference().set(-1);
    EXPECT_DEATH(SplashScreenView({}, {}), "stored modifiers cannot be shown: -1");
}

TEST_F(Welcome, hugeModifiersShowTheFlagsThatTheyHave) {
    globalHotkeyModifiersPreference().set(std::numeric_limits<qint64>::max());
    open();
    EXPECT_EQ(field()->text(), QString::fromUtf16(u"⌃⌥⇧⌘Space"));
}

TEST_F(Welcome, aStoredNumberWithAFractionReadsAsTheDefault) {
    globalHotkeyKeyCodePreference().set(40); // makes the folder
    QFile file(preferences->filePath());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(R"({"globalHotkeyKeyCode": 40.5, "globalHotkeyModifiers": 1e300})");
    file.close();
    Preferences fresh(file.fileName());
    Preferences::setStandard(&fresh);
    open();
    EXPECT_EQ(field()->text(), QString::fromUtf16(u"⇧⌘Space"));
    Preferences::setStandard(&*preferences);
}

TEST_F(Welcome, showsTheStoredShortcutAndTheDefaultWithoutOne) {
    open();
    EXPECT_EQ(field()->text(), QString::fromUtf16(u"⇧⌘Space"));
    EXPECT_EQ(field()->toolTip(), QStringLiteral("Ctrl+Shift+Space"));
    welcome().tearDown();
    globalHotkeyModifiersPreference().set(0x1E0000);
    globalHotkeyKeyCodePreference().set(40);
    open();
    EXPECT_EQ(field()->text(), QString::fromUtf16(u"⌃⌥⇧⌘K"));
    EXPECT_EQ(view()->hotkeyModifiers(), 0x1E0000U);
    EXPECT_EQ(view()->hotkeyKeyCode(), 40);
}

TEST_F(Welcome, whileRecordingTheHotkeyIsOffAndTheButtonSaysRecording) {
    HotkeyManager::shared().registerHotkey();
    open();
    click(button("Change"));
    EXPECT_TRUE(view()->isRecordingHotkey());
    EXPECT_TRUE(desktop.hotKeys.empty());
    EXPECT_TRUE(button("Recording..."));
    EXPECT_FALSE(button("Change"));
}

TEST_F(Welcome, stoppingByTheButtonPutsTheStoredShortcutBackATenthOfASecondLater) {
    open();
    startRecording();
    click(button("Recording..."));
    EXPECT_FALSE(view()->isRecordingHotkey());
    EXPECT_TRUE(button("Change"));
    clock.advance(99ms);
    EXPECT_EQ(registrations(), QStringList{});
    clock.advance(1ms);
    EXPECT_EQ(registrations(), QStringList{QStringLiteral("registerEventHotKey 49 0x300")});
}

TEST_F(Welcome, aRecordedShortcutIsLiveAtOnceAndIsWhatTheSettingsShow) {
    open();
    startRecording();
    strike(Strokes::commandK);
    EXPECT_FALSE(view()->isRecordingHotkey());
    EXPECT_EQ(registrations(), QStringList{QStringLiteral("registerEventHotKey 40 0x100")});
    EXPECT_EQ(field()->text(), QString::fromUtf16(u"⌘K"));
    EXPECT_EQ(globalHotkeyKeyCodePreference().value(), 40);
    EXPECT_EQ(globalHotkeyModifiersPreference().value(), 0x100000);
    const HotkeySettingsView settings;
    EXPECT_EQ(settings.findChild<HotkeyRecorderView*>()->text(), QString::fromUtf16(u"⌘K"));
}

TEST_F(Welcome, aRecordedShortcutIsNotRegisteredASecondTime) {
    open();
    startRecording();
    strike(Strokes::commandK);
    clock.advance(2s);
    EXPECT_EQ(registrations().size(), 1);
}

TEST_F(Welcome, aRecordedShortcutIsRegisteredAlsoWithoutThePermission) {
    desktop.trusted = false;
    open();
    startRecording();
    strike(Strokes::commandK);
    EXPECT_EQ(registrations(), QStringList{QStringLiteral("registerEventHotKey 40 0x100")});
}

TEST_F(Welcome, theKeyCodeIsWrittenBeforeTheModifiers) {
    open();
    startRecording();
    QStringList written;
    QObject::connect(&*preferences, &Preferences::changed, view(), [&written](const QString& key) { written += key; });
    strike(Strokes::commandK);
    EXPECT_EQ(written, (QStringList{QStringLiteral("globalHotkeyKeyCode"), QStringLiteral("globalHotkeyModifiers")}));
}

TEST_F(Welcome, aPlainKeyIsSwallowedAndRecordingStaysOn) {
    open();
    startRecording();
    strike(Strokes::plainK);
    press(Qt::Key_Return); // would press the default button
    press(Qt::Key_Escape);
    EXPECT_TRUE(view()->isRecordingHotkey());
    EXPECT_FALSE(SplashScreenManager::shared().hasShownSplashScreen());
}

TEST_F(Welcome, theKeyOfCodeZeroCannotBeChosen) {
    open();
    startRecording();
    strike(Strokes::commandA);
    EXPECT_TRUE(view()->isRecordingHotkey());
    EXPECT_EQ(registrations(), QStringList{});
}

TEST_F(Welcome, theSavedNoticeStandsForThreeSeconds) {
    open();
    EXPECT_FALSE(view()->hasSetCustomHotkey());
    EXPECT_FALSE(notice()->isVisible());
    startRecording();
    strike(Strokes::commandK);
    EXPECT_TRUE(view()->hasSetCustomHotkey());
    EXPECT_TRUE(notice()->isVisible());
    EXPECT_EQ(notice()->text(), QStringLiteral("Shortcut saved!"));
    EXPECT_EQ(notice()->symbol(), QStringLiteral("checkmark.circle.fill"));
    clock.advance(2999ms);
    EXPECT_TRUE(view()->hasSetCustomHotkey());
    clock.advance(1ms);
    EXPECT_FALSE(view()->hasSetCustomHotkey());
    EXPECT_TRUE(QTest::qWaitFor([] { return !notice()->isVisible(); }));
}

TEST_F(Welcome, aSecondCaptureWithinTheThreeSecondsIsClearedByTheFirstTimer) {
    open();
    startRecording();
    strike(Strokes::commandK);
    clock.advance(2s);
    startRecording();
    strike(Strokes::command1);
    EXPECT_TRUE(view()->hasSetCustomHotkey());
    clock.advance(1s);
    EXPECT_FALSE(view()->hasSetCustomHotkey());
}

TEST_F(Welcome, leftWhileRecordingItGoesOnRecording) {
    open();
    startRecording();
    click(button("Got it, let's go!"));
    EXPECT_TRUE(view()->isRecordingHotkey());
}

TEST_F(Welcome, theButtonAtTheEndIsTheDefaultOne) {
    open();
    press(Qt::Key_Return);
    EXPECT_TRUE(SplashScreenManager::shared().hasShownSplashScreen());
}

TEST_F(Welcome, escapeDoesNothing) {
    open();
    press(Qt::Key_Escape);
    EXPECT_TRUE(window()->isVisible());
    EXPECT_FALSE(SplashScreenManager::shared().hasShownSplashScreen());
}

TEST_F(Welcome, theTabKeyReachesItsButtons) {
    desktop.trusted = false;
    PermissionManager::shared().refreshPermission();
    open();
    QStringList reached;
    for (int i = 0; i < 6; ++i) {
        press(Qt::Key_Tab);
        if (const auto* focused = qobject_cast<Button*>(QApplication::focusWidget()))
            reached += focused->text();
    }
    for (const char* title : {"Change", "Grant Permission", "Got it, let's go!"})
        EXPECT_TRUE(reached.contains(QString::fromLatin1(title))) << title;
}

TEST_F(Welcome, withThePermissionHeldTheCardNeverShows) {
    open();
    EXPECT_FALSE(button("Grant Permission"));
}

TEST_F(Welcome, thePermissionHeldButNotLookedAtYetShowsNoCardEither) {
    // The permission is looked at whenever the program becomes active; here it is that already.
    QWidget other;
    other.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    desktop.trusted = false;
    PermissionManager::shared().refreshPermission();
    desktop.trusted = true;
    open();
    EXPECT_FALSE(PermissionManager::shared().hasAccessibilityPermission());
    EXPECT_FALSE(button("Grant Permission"));
}

TEST_F(Welcome, withoutThePermissionTheCardAsksForItAndGoesWhenItComes) {
    desktop.trusted = false;
    PermissionManager::shared().refreshPermission();
    open();
    EXPECT_TRUE(texts().contains(QStringLiteral("Accessibility Permission Required")));
    EXPECT_TRUE(texts().contains(
        QStringLiteral("Required for global keyboard shortcuts to access your prompts from anywhere.")));
    click(button("Grant Permission"));
    EXPECT_EQ(desktop.trustPrompts, 1);
    desktop.trusted = true;
    clock.advance(500ms);
    EXPECT_FALSE(button("Grant Permission"));
    EXPECT_FALSE(texts().contains(QStringLiteral("Accessibility Permission Required")));
}

TEST_F(Welcome, keepsItsDistances) {
    window();
    open();
    if (view()->height() < 850)
        window()->setFixedSize(window()->size() + QSize(0, 850 - view()->height()));
    QCoreApplication::processEvents();
    ASSERT_EQ(view()->size(), QSize(600, 850));
    const QRect finish = place(button("Got it, let's go!"));
    EXPECT_EQ(finish, QRect(44, 850 - 36 - 44, 512, 44));
    const QRect recorder = place(field());
    EXPECT_EQ(recorder.left(), 44 + 20);
    EXPECT_EQ(recorder.height(), 46);
    const QRect change = place(button("Change"));
    EXPECT_EQ(change.left(), recorder.right() + 1 + 10);
    EXPECT_EQ(change.right(), 600 - 44 - 20 - 1);
    EXPECT_EQ(view()->findChild<ScrollArea*>()->verticalScrollBar()->maximum(), 0);
}

} // namespace
} // namespace Quillstacks
