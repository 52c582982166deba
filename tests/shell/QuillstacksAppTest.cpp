#include "shell/QuillstacksApp.h"

#include "EventLoop.h"
#include "hotkey/HotkeyManager.h"
#include "hotkey/PermissionBannerView.h"
#include "hotkey/PermissionManager.h"
#include "interface/Sheet.h"
#include "library/model/ModelContext.h"
#include "library/model/Prompt.h"
#include "platform/SingleInstance.h"
#include "platform/StatusItem.h"
#include "shell/DataStoreErrorView.h"
#include "shell/MainWindow.h"
#include "shell/MenuBarContent.h"
#include "ShellFixture.h"

#include <QDir>
#include <QGuiApplication>
#include <QMenu>
#include <QTest>

namespace Quillstacks {
namespace {

using namespace std::chrono_literals;

class Launch : public ShellFixture {
protected:
    /// A file that is no store stands where the store belongs.
    void breakStore() const {
        ASSERT_TRUE(QDir(support.path()).mkpath(QStringLiteral("app.Quillstacks")));
        QFile file(storePath());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(QByteArray("this is no database, and never was one\n").repeated(100));
    }
    [[nodiscard]] QStringList linesOf(const QString& category) const {
        QStringList result;
        for (const QString& line : log.lines())
            if (line.startsWith(category))
                result << line;
        return result;
    }
    static QuickAccessWindowManager& panel() { return QuickAccessWindowManager::shared(); }
};

TEST_F(Launch, theStepsRunInTheirOrder) {
    preferences->set(QStringLiteral("PreferencesMigrationCompleted_v3"), true);
    const QuillstacksApp app;
    EXPECT_EQ(log.lines(),
              (QStringList{
                  QStringLiteral("general info: Quillstacks initialized - version: 1.0.0 (1)"),
                  QStringLiteral("general debug: Preferences migration check already completed, skipping"),
                  QStringLiteral("general info: Checking for data store at default SwiftData location"),
                  QStringLiteral("general info: No data store found at default locations (starting fresh)"),
                  QStringLiteral("data info: Data storage location: ") + storePath(),
                  QStringLiteral("data info: SwiftData container initialized successfully"),
                  QStringLiteral("permissions info: Permission already granted, registering hotkey"),
                  QStringLiteral("hotkey info: Hotkey registered - keyCode: 49, modifiers: 768"),
              }));
    EXPECT_TRUE(app.sharedModelContainer);
    EXPECT_FALSE(app.containerError);
}

TEST_F(Launch, aFirstStartMakesTheFolderAndANewStoreInIt) {
    const QuillstacksApp app;
    EXPECT_TRUE(QFile::exists(storePath()));
    EXPECT_TRUE(app.sharedModelContainer->mainContext().prompts().isEmpty());
}

TEST_F(Launch, withTheMarkerSetAndTheStoreGoneANewOneIsMadeAndTheOldOneStaysWhereItIs) {
    const QString old = support.filePath(QStringLiteral("default.store"));
    {
        const ModelContainer library(Schema::current(), ModelConfiguration{old, true});
        library.mainContext().insert(std::make_unique<Prompt>(QStringLiteral("Old"), QStringLiteral("words")));
        library.mainContext().save();
    }
    preferences->set(QStringLiteral("DataStoreMigrationCompleted_v3"), true);
    const QuillstacksApp app;
    ASSERT_TRUE(app.sharedModelContainer);
    EXPECT_TRUE(QFile::exists(storePath()));
    EXPECT_TRUE(app.sharedModelContainer->mainContext().prompts().isEmpty());
    EXPECT_EQ(ModelContainer(Schema::current(), ModelConfiguration{old, true}).mainContext().prompts().size(), 1);
}

TEST_F(Launch, thePreferencesCheckComesBeforeTheStoreIsTouched) {
    const QuillstacksApp app;
    const QStringList lines = log.lines();
    EXPECT_LT(lines.indexOf(QStringLiteral("general info: Preferences check completed")),
              lines.indexOf(QStringLiteral("general info: Checking for data store at default SwiftData location")));
}

TEST_F(Launch, theDockIconIsOffFirstAndReturnsWithTheMainWindow) {
    const QuillstacksApp app;
    EXPECT_TRUE(desktop.callsOf(QStringLiteral("setActivationPolicy")).isEmpty());
    turn();
    EXPECT_EQ(
        desktop.callsOf(QStringLiteral("setActivationPolicy")),
        (QStringList{QStringLiteral("setActivationPolicy accessory"), QStringLiteral("setActivationPolicy regular")}));
    EXPECT_EQ(DockVisibilityController::shared().currentPolicy(), ActivationPolicy::regular);
}

TEST_F(Launch, theMainWindowOpensAtEveryStart) {
    QuillstacksApp app;
    EXPECT_FALSE(app.mainWindow().isVisible());
    turn();
    EXPECT_TRUE(app.mainWindow().isVisible());
    EXPECT_TRUE(app.mainWindow().contentView());
}

TEST_F(Launch, aPressOfTheHotkeyTogglesThePanelTwoTurnsLater) {
    const QuillstacksApp app;
    turn();
    desktop.press();
    EXPECT_FALSE(panel().isVisible());
    turn();
    turn();
    EXPECT_TRUE(panel().isVisible());
    desktop.press();
    turn();
    turn();
    EXPECT_FALSE(panel().isVisible());
}

TEST_F(Launch, thePanelIsBuiltAheadWithoutShowing) {
    const QuillstacksApp app;
    turn();
    EXPECT_FALSE(panel().rootView());
    clock.advance(500ms);
    EXPECT_TRUE(panel().rootView());
    EXPECT_FALSE(panel().isVisible());
}

TEST_F(Launch, anUnreadableStoreIsLeftAsItIsAndShownAsAFailure) {
    breakStore();
    QFile file(storePath());
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray before = file.readAll();

    QuillstacksApp app;
    turn();
    EXPECT_FALSE(app.sharedModelContainer);
    EXPECT_TRUE(app.containerError);
    EXPECT_TRUE(app.mainWindow().findChild<DataStoreErrorView*>());
    const QStringList faults = log.messages(QStringLiteral("data"), LogLevel::Fault);
    ASSERT_EQ(faults.size(), 1);
    EXPECT_TRUE(faults.first().startsWith(QStringLiteral("Failed to create SwiftData container: ")));
    EXPECT_TRUE(faults.first().contains(storePath()));
    file.seek(0);
    EXPECT_EQ(file.readAll(), before);
}

TEST_F(Launch, withoutAStoreTrayAndHotkeyStayAliveAndThePanelHasNothingToShow) {
    breakStore();
    const QuillstacksApp app;
    turn();
    turn();
    EXPECT_EQ(desktop.hotKeys.size(), 1U);
    ASSERT_EQ(desktop.statusItems.size(), 1U);
    EXPECT_TRUE(desktop.statusItems.front()->isShown());
    desktop.press();
    turn();
    turn();
    EXPECT_FALSE(panel().isVisible());
    EXPECT_EQ(panel().modelContainer(), nullptr);
}

TEST_F(Launch, withoutAnApplicationSupportDirectoryTheFailureNamesIt) {
    desktop.applicationSupportDirectories = QStringList{};
    const QuillstacksApp app;
    ASSERT_TRUE(app.containerError);
    EXPECT_EQ(linesOf(QStringLiteral("data")),
              QStringList{QStringLiteral(
                  "data fault: Failed to create SwiftData container: Cannot access Application Support directory")});
    EXPECT_TRUE(linesOf(QStringLiteral("general")).filter(QStringLiteral("data store")).isEmpty());
}

TEST_F(Launch, aFolderThatCannotBeMadeIsShownWithTheSystemsWords) {
    QFile inTheWay(support.filePath(QStringLiteral("app.Quillstacks")));
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    const QuillstacksApp app;
    EXPECT_TRUE(app.containerError);
    const QStringList faults = log.messages(QStringLiteral("data"), LogLevel::Fault);
    ASSERT_EQ(faults.size(), 1);
    EXPECT_TRUE(faults.first().contains(support.filePath(QStringLiteral("app.Quillstacks"))));
    EXPECT_TRUE(linesOf(QStringLiteral("data info")).isEmpty());
}

TEST_F(Launch, withoutTrustTheHotkeyIsSkippedAndTheStartGoesOn) {
    desktop.trusted = false;
    QuillstacksApp app;
    turn();
    EXPECT_TRUE(desktop.hotKeys.empty());
    EXPECT_TRUE(app.mainWindow().isVisible());
}

TEST_F(Launch, thePermissionIsLookedAtOneSecondAfterTheStartAndMissingBringsTheBanner) {
    desktop.trusted = false;
    QuillstacksApp app;
    turn();
    EXPECT_FALSE(app.mainWindow().findChild<PermissionBannerView*>());
    clock.advance(1s);
    const auto* banner = app.mainWindow().findChild<PermissionBannerView*>();
    ASSERT_TRUE(banner);
    EXPECT_TRUE(banner->isVisible());
}

TEST_F(Launch, theWindowsAppearanceAfterTheFirstDoesNotRepeatThePermissionCheck) {
    QuillstacksApp app;
    turn();
    clock.advance(1s);
    desktop.trusted = false;
    app.mainWindow().close();
    app.reopen();
    clock.advance(2s);
    EXPECT_FALSE(PermissionManager::shared().showPermissionAlert());
    EXPECT_FALSE(app.mainWindow().findChild<PermissionBannerView*>());
}

TEST_F(Launch, theStatusItemShowsTheMenu) {
    QuillstacksApp app;
    turn();
    turn();
    ASSERT_EQ(desktop.statusItems.size(), 1U);
    const auto contents = desktop.contentsOf(desktop.statusItems.front());
    EXPECT_TRUE(contents.isShown);
    EXPECT_EQ(contents.title, QStringLiteral("Quillstacks"));
    EXPECT_EQ(contents.menu, app.menuBarContent().menu());
    EXPECT_FALSE(contents.icon.isNull());
}

TEST_F(Launch, withoutATrayTheLogSaysSoOnce) {
    desktop.setTrayAvailable(false);
    const QuillstacksApp app;
    turn();
    turn();
    EXPECT_EQ(log.messages(QStringLiteral("ui"), LogLevel::Default).size(), 1);
}

TEST_F(Launch, closingTheMainWindowLeavesTheProgramRunningWithItsMenu) {
    QGuiApplication::setQuitOnLastWindowClosed(true); // as the toolkit has it
    QuillstacksApp app;
    turn();
    turn();
    EXPECT_EQ(runUntilExit([&app] {
                  app.mainWindow().close();
                  // Two turns of the loop later, which do not come about if the last window ended the program.
                  QTimer::singleShot(0, &app,
                                     [&app] { QTimer::singleShot(0, &app, [] { QCoreApplication::exit(7); }); });
              }),
              7);
    EXPECT_EQ(DockVisibilityController::shared().currentPolicy(), ActivationPolicy::accessory);
    EXPECT_TRUE(desktop.statusItems.front()->isShown());
}

TEST_F(Launch, aSecondStartWithNoVisibleWindowBringsTheWindowBack) {
    SingleInstance instance;
    QuillstacksApp app;
    app.serve(instance);
    turn();
    app.mainWindow().close();
    Q_EMIT instance.activated(QString());
    EXPECT_TRUE(app.mainWindow().isVisible());
    EXPECT_TRUE(app.mainWindow().contentView());
    EXPECT_EQ(DockVisibilityController::shared().currentPolicy(), ActivationPolicy::regular);
}

TEST_F(Launch, aSecondStartWithAVisibleWindowBringsItToTheFront) {
    SingleInstance instance;
    QuillstacksApp app;
    app.serve(instance);
    turn();
    desktop.calls.clear();
    Q_EMIT instance.activated(QString());
    EXPECT_EQ(desktop.calls, QStringList{QStringLiteral("showAndActivate main 0")});
}

TEST_F(Launch, theDesktopActionQuickAccessTogglesThePanel) {
    SingleInstance instance;
    QuillstacksApp app;
    app.serve(instance);
    clock.advance(2s);
    Q_EMIT instance.actionActivated(QStringLiteral("quick-access"), QString());
    EXPECT_TRUE(panel().isVisible());
    Q_EMIT instance.actionActivated(QStringLiteral("quick-access"), QString());
    EXPECT_FALSE(panel().isVisible());
}

TEST_F(Launch, quickAccessAsTheActionOfAStartWaitsForTheMainWindowToHaveTheKeyboard) {
    SingleInstance instance;
    QuillstacksApp app;
    app.serve(instance);
    Q_EMIT instance.actionActivated(QStringLiteral("quick-access"), QString());
    turn();
    EXPECT_FALSE(panel().isVisible()) << "the main window has just been opened";
    ASSERT_TRUE(QTest::qWaitForWindowActive(&app.mainWindow()));
    clock.advance(100ms); // its own wish for the keyboard is made by then
    EXPECT_TRUE(panel().isVisible());
}

TEST_F(Launch, quickAccessAsTheActionOfAStartComesAlsoWhereTheMainWindowIsLeftBehind) {
    SingleInstance instance;
    QuillstacksApp app;
    app.serve(instance);
    Q_EMIT instance.actionActivated(QStringLiteral("quick-access"), QString());
    turn();
    app.mainWindow().hide();
    clock.advance(1900ms);
    EXPECT_FALSE(panel().isVisible());
    clock.advance(200ms);
    EXPECT_TRUE(panel().isVisible());
}

TEST_F(Launch, theDesktopActionNewPromptOpensTheWindowWithAnEditor) {
    SingleInstance instance;
    QuillstacksApp app;
    app.serve(instance);
    turn();
    app.mainWindow().close();
    Q_EMIT instance.actionActivated(QStringLiteral("new-prompt"), QString());
    EXPECT_TRUE(app.mainWindow().isVisible());
    EXPECT_TRUE(Sheet::top(&app.mainWindow()));
}

TEST_F(Launch, anUnknownDesktopActionDoesNothing) {
    QuillstacksApp app;
    app.performAction(QStringLiteral("format-disk"));
    EXPECT_FALSE(app.mainWindow().isVisible());
    EXPECT_FALSE(panel().isVisible());
}

TEST_F(Launch, theEndLetsGoOfHotkeyPanelAndStore) {
    {
        const QuillstacksApp app;
        turn();
        turn();
    }
    EXPECT_TRUE(desktop.hotKeys.empty());
    EXPECT_TRUE(desktop.handlers.empty());
    EXPECT_TRUE(desktop.statusItems.empty());
    EXPECT_EQ(panel().modelContainer(), nullptr);
    EXPECT_FALSE(HotkeyManager::shared().onHotkeyPressed);
    EXPECT_EQ(MainWindow::find(), nullptr);
    EXPECT_TRUE(makeContainer()) << "another store opens after it";
}

} // namespace
} // namespace Quillstacks
