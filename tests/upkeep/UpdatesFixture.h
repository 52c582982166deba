#pragma once

#include "foundation/ManualClock.h"
#include "interface/Button.h"
#include "interface/Label.h"
#include "interface/Sheet.h"
#include "interface/ToastManager.h"
#include "platform/FakeDesktop.h"
#include "platform/UpdateError.h"
#include "support/LogCapture.h"
#include "support/TestPreferences.h"
#include "upkeep/feed/UpdateFeeds.h"
#include "upkeep/SparkleUpdaterManager.h"

#include <QTest>

#include <gtest/gtest.h>

namespace Quillstacks {

/// A manager with an origin and a key, version 1.0.0 of the program, a window to speak in, and a time that stands
/// still. A server that has nothing newer.
class UpdatesFixture : public testing::Test {
protected:
    UpdatesFixture() {
        QCoreApplication::setApplicationVersion(QStringLiteral("1.0.0"));
        publish({});
    }
    ~UpdatesFixture() override {
        QCoreApplication::setApplicationVersion({});
        manager.reset();
        FakeDesktop::endSilence();
        QCoreApplication::processEvents();
    }

    void launch(const UpdateOrigin& origin = {QStringLiteral("https://example.org"), QByteArray(32, 'k')}) {
        manager = std::make_unique<SparkleUpdaterManager>(origin);
        manager->updaterController.userDriver().window = [this](bool bringForward) -> QWidget* {
            if (bringForward)
                openWindow();
            return window.isVisible() ? &window : nullptr;
        };
    }
    void openWindow() {
        window.resize(800, 600);
        window.show();
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }
    /// What the server lists from now on.
    void publish(const std::vector<QByteArray>& items) {
        desktop.fetchAnswer = [items](const QUrl&) { return feedOf(items); };
    }
    void failWith(UpdateError::Case what) {
        desktop.fetchAnswer = [what](const QUrl&) -> QByteArray { throw UpdateError(what, QStringLiteral("so")); };
    }
    /// Lets time pass, and what it starts be answered.
    void pass(std::chrono::nanoseconds time = {}) {
        clock.advance(time);
        for (int turn = 0; turn < 5; ++turn) {
            QCoreApplication::processEvents();
            clock.advance({});
        }
    }
    void check() {
        manager->checkForUpdates();
        pass();
    }
    [[nodiscard]] qsizetype fetches() const { return desktop.callsOf(QStringLiteral("fetch")).size(); }
    [[nodiscard]] Updater& updater() { return manager->updaterController.updater(); }

    /// The texts of the alert on top; empty without one.
    [[nodiscard]] QStringList alert() const {
        QStringList result;
        const Sheet* sheet = Sheet::top(&window);
        if (sheet)
            for (const Label* label : sheet->findChildren<Label*>())
                result += label->text();
        return result;
    }
    [[nodiscard]] QStringList alertButtons() const {
        QStringList result;
        for (const Button* button : Sheet::top(&window)->findChildren<Button*>())
            result += button->text();
        return result;
    }
    void answer(const char* title) {
        for (Button* button : Sheet::top(&window)->findChildren<Button*>())
            if (button->text() == QString::fromLatin1(title))
                return button->click(), pass(std::chrono::seconds(0));
        FAIL() << "no such button: " << title;
    }

    FakeDesktop& desktop = FakeDesktop::fresh();
    TestPreferences preferences;
    LogCapture log;
    ManualClock clock;
    QWidget window;
    std::unique_ptr<SparkleUpdaterManager> manager;
};

} // namespace Quillstacks
