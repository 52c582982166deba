#pragma once

#include "foundation/ManualClock.h"
#include "hotkey/HotkeyManager.h"
#include "hotkey/HotkeyPreferences.h"
#include "hotkey/HotkeyRecorderView.h"
#include "hotkey/HotkeySettingsView.h"
#include "interface/Button.h"
#include "interface/Label.h"
#include "interface/Theme.h"
#include "platform/FakeDesktop.h"
#include "Strike.h"
#include "support/LogCapture.h"
#include "support/TestPreferences.h"

#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace Quillstacks {

/// The settings of the hot key in a window that has the keyboard, above a text field that has it within the window.
class HotkeySettingsFixture : public testing::Test {
protected:
    HotkeySettingsFixture() {
        Theme::shared().refresh();
        HotkeyManager::shared().unregister();
        capture.clear();
        desktop.calls.clear();
    }
    ~HotkeySettingsFixture() override {
        if (view && view->isRecording())
            strike(Strokes::commandK);
        HotkeyManager::shared().unregister();
    }

    void open() {
        window.resize(420, 300);
        auto* column = new QVBoxLayout(&window);
        view = new HotkeySettingsView;
        editor = new QLineEdit;
        column->addWidget(view);
        column->addWidget(editor);
        window.show();
        window.activateWindow();
        editor->setFocus();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }
    void strike(const KeyStroke& stroke) { Quillstacks::strike(window.windowHandle(), stroke); }
    void click(const QWidget* widget) {
        QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, widget->mapTo(&window, widget->rect().center()));
    }
    [[nodiscard]] Button* button(const char* title) const {
        for (Button* candidate : window.findChildren<Button*>())
            if (candidate->text() == QString::fromUtf8(title) && candidate->isVisibleTo(&window))
                return candidate;
        return nullptr;
    }
    void startRecording() {
        click(button("Record"));
        ASSERT_TRUE(view->isRecording());
    }
    [[nodiscard]] QString shownShortcut() const { return window.findChild<HotkeyRecorderView*>()->text(); }
    [[nodiscard]] QStringList texts() const {
        QStringList result;
        for (const Label* label : window.findChildren<Label*>())
            if (label->isVisibleTo(&window))
                result += label->text();
        return result;
    }
    [[nodiscard]] static qint64 storedKeyCode() { return globalHotkeyKeyCodePreference().value(); }
    [[nodiscard]] static qint64 storedModifiers() { return globalHotkeyModifiersPreference().value(); }
    [[nodiscard]] QStringList registrations() const { return desktop.callsOf(QStringLiteral("registerEventHotKey")); }

    TestPreferences preferences;
    ManualClock clock;
    LogCapture capture;
    FakeDesktop& desktop = FakeDesktop::fresh();
    QWidget window;
    QPointer<HotkeySettingsView> view;
    QLineEdit* editor = nullptr;
};

} // namespace Quillstacks
