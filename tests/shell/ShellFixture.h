#pragma once

#include "foundation/ManualClock.h"
#include "hotkey/PermissionManager.h"
#include "library/model/ModelContainer.h"
#include "platform/FakeDesktop.h"
#include "quickaccess/QuickAccessWindowManager.h"
#include "shell/DockVisibilityController.h"
#include "shell/MainWindowFocusManager.h"
#include "shell/welcome/SplashScreenWindowManager.h"
#include "support/LogCapture.h"
#include "support/TestPreferences.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace Quillstacks {

/// A desktop, preferences and an application support directory of its own, with the shared managers as at a start.
class ShellFixture : public testing::Test {
protected:
    ShellFixture() {
        desktop.applicationSupportDirectories = QStringList{support.path()};
        DockVisibilityController::shared().setPolicy(ActivationPolicy::regular);
        MainWindowFocusManager::shared().reset();
        PermissionManager::shared().hasCheckedOnLaunch = false;
        PermissionManager::shared().dismissAlert();
        desktop.calls.clear();
        log.clear();
    }
    ~ShellFixture() override {
        clock.advance(std::chrono::seconds(1)); // the welcome of the start may still be on its way
        SplashScreenWindowManager::shared().tearDown();
        QuickAccessWindowManager::shared().setModelContainer(nullptr);
    }

    [[nodiscard]] QString storePath() const {
        return support.filePath(QStringLiteral("app.Quillstacks/Quillstacks.store"));
    }
    /// A new store in the support directory.
    [[nodiscard]] std::unique_ptr<ModelContainer> makeContainer() const {
        return std::make_unique<ModelContainer>(
            Schema::current(), ModelConfiguration{support.filePath(QStringLiteral("test.store")), true});
    }
    /// Lets all that waits for the next turn run.
    void turn() { clock.advance(std::chrono::nanoseconds(0)); }

    QTemporaryDir support;
    FakeDesktop& desktop = FakeDesktop::fresh();
    TestPreferences preferences;
    LogCapture log;
    ManualClock clock;
};

} // namespace Quillstacks
