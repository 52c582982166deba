#pragma once

#include "foundation/ManualClock.h"
#include "hotkey/HotkeyManager.h"
#include "hotkey/HotkeyPreferences.h"
#include "hotkey/PermissionManager.h"
#include "hotkey/Strike.h"
#include "interface/Button.h"
#include "interface/Label.h"
#include "interface/Theme.h"
#include "platform/FakeDesktop.h"
#include "shell/welcome/SplashScreenManager.h"
#include "shell/welcome/SplashScreenView.h"
#include "shell/welcome/SplashScreenWindow.h"
#include "shell/welcome/SplashScreenWindowManager.h"
#include "support/LogCapture.h"
#include "support/TestPreferences.h"

#include <QTest>

#include <gtest/gtest.h>

namespace Quillstacks {

/// A first start on a desktop of its own, whose time stands still but for fades.
class WelcomeFixture : public testing::Test {
protected:
    WelcomeFixture() {
        Theme::shared().refresh();
        HotkeyManager::shared().unregister();
        PermissionManager::shared().refreshPermission();
        desktop.calls.clear();
        welcome().onShow = [this] { told += QStringLiteral("show"); };
        welcome().onDismissed = [this] { told += QStringLiteral("dismissed"); };
    }
    ~WelcomeFixture() override {
        if (view() && view()->isRecordingHotkey())
            view()->toggleRecording();
        welcome().tearDown();
        welcome().onShow = {};
        welcome().onDismissed = {};
        clock.advance(std::chrono::seconds(1));
        HotkeyManager::shared().unregister();
    }

    static SplashScreenWindowManager& welcome() { return SplashScreenWindowManager::shared(); }
    static SplashScreenWindow* window() { return welcome().windowController(); }
    static SplashScreenView* view() { return welcome().hostingController(); }

    void open() {
        welcome().show([this] { told += QStringLiteral("open app"); });
        ASSERT_TRUE(window());
        ASSERT_TRUE(QTest::qWaitForWindowActive(window()));
        turn();
    }
    /// Lets all that waits for the next turn run.
    void turn() { clock.advance(std::chrono::nanoseconds(0)); }
    /// A key as the window system delivers it: to whatever has the keyboard.
    static void press(Qt::Key key) { QTest::keyClick(window()->windowHandle(), key); }
    static void strike(const KeyStroke& stroke) { Quillstacks::strike(window()->windowHandle(), stroke); }
    static void click(const QWidget* widget) {
        ASSERT_TRUE(widget);
        QTest::mouseClick(window()->windowHandle(), Qt::LeftButton, {},
                          widget->mapTo(window(), widget->rect().center()));
    }
    static Button* button(const char* title) {
        for (Button* candidate : view()->findChildren<Button*>())
            if (candidate->text() == QString::fromLatin1(title) && candidate->isVisibleTo(view()))
                return candidate;
        return nullptr;
    }
    static QStringList texts() {
        QStringList result;
        for (const Label* label : view()->findChildren<Label*>())
            if (label->isVisibleTo(view()))
                result += label->text();
        return result;
    }
    [[nodiscard]] QStringList registrations() const { return desktop.callsOf(QStringLiteral("registerEventHotKey")); }

    TestPreferences preferences;
    ManualClock clock;
    LogCapture log;
    FakeDesktop& desktop = FakeDesktop::fresh();
    QStringList told;
};

} // namespace Quillstacks
