#pragma once

#include "foundation/ManualClock.h"
#include "interface/Button.h"
#include "interface/Theme.h"
#include "interface/ToastManager.h"
#include "library/model/TestLibrary.h"
#include "platform/FakeDesktop.h"
#include "support/LogCapture.h"
#include "support/TestPreferences.h"

#include <QTest>
#include <QWidget>

#include <gtest/gtest.h>

namespace Quillstacks {

/// A library on a desktop of its own, whose time stands still.
class LibraryFixture : public testing::Test {
protected:
    LibraryFixture() {
        FakeDesktop::fresh();
        Theme::shared().refresh(); // it followed the preferences of the test before
    }

    Prompt* addPrompt(const QString& title, const QString& body = QStringLiteral("body"),
                      const QList<Tag*>& tags = {}) {
        Prompt* prompt = library.addPrompt(title, body, tags);
        library.context().save();
        // The next one is the newer one.
        clock.advance(std::chrono::seconds(1));
        return prompt;
    }
    Tag* addTag(const QString& name) { return library.addTag(name); }
    /// What another program would paste.
    static QString clipboard() { return FakeDesktop::shared().clipboardText; }
    static QString toast() { return ToastManager::shared().message(); }

    /// Shows a window and gives it the keyboard.
    static void show(QWidget& window, const QSize& size) {
        window.resize(size);
        window.show();
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }
    /// The button with this title that can be seen within a widget; nullptr for none.
    static Button* visibleButton(const QWidget& within, const QString& title) {
        for (Button* button : within.findChildren<Button*>())
            if (button->text() == title && button->isVisibleTo(&within))
                return button;
        return nullptr;
    }
    /// The same by name for whatever control there is.
    template <typename Control>
    static Control* named(const QWidget& within, const QString& accessibleName) {
        for (Control* control : within.findChildren<Control*>())
            if (control->accessibleName() == accessibleName && control->isVisibleTo(&within))
                return control;
        return nullptr;
    }

    TestPreferences preferences;
    ManualClock clock;
    TestLibrary library;
};

} // namespace Quillstacks
