#include "shell/MenuBarContent.h"

#include "EventLoop.h"
#include "ShellFixture.h"
#include "upkeep/SparkleUpdaterManager.h"

#include <QMenu>

namespace Quillstacks {
namespace {

using namespace std::chrono_literals;

class MenuBar : public ShellFixture {
protected:
    [[nodiscard]] QStringList texts() const {
        QStringList result;
        for (const QAction* action : content.menu()->actions())
            result << (action->isSeparator() ? QStringLiteral("-") : action->text());
        return result;
    }
    void choose(int index) { content.menu()->actions().at(index)->trigger(); }

    int opened = 0;
    MenuBarContent content{[this] {
        ++opened;
        desktop.note(QStringLiteral("openWindow"));
    }};
};

TEST_F(MenuBar, theEntriesFromTopToBottom) {
    EXPECT_EQ(texts(),
              (QStringList{QStringLiteral("Quick Access (⇧⌘Space)"), QStringLiteral("-"),
                           QStringLiteral("Open Quillstacks"), QStringLiteral("-"), QStringLiteral("Check for Updates"),
                           QStringLiteral("-"), QStringLiteral("Quit Quillstacks")}));
}

TEST_F(MenuBar, aChangedShortcutShowsInTheFirstItemAtOnce) {
    preferences->set(QStringLiteral("globalHotkeyKeyCode"), qint64(40));
    EXPECT_EQ(texts().first(), QStringLiteral("Quick Access (⇧⌘K)"));
    preferences->set(QStringLiteral("globalHotkeyModifiers"), qint64(0x1E0000));
    EXPECT_EQ(texts().first(), QStringLiteral("Quick Access (⌃⌥⇧⌘K)"));
    preferences->removePersistentDomain();
    EXPECT_EQ(texts().first(), QStringLiteral("Quick Access (⇧⌘Space)"));
}

TEST_F(MenuBar, aShortcutOfTheWrongTypeReadsAsTheDefault) {
    preferences->set(QStringLiteral("globalHotkeyKeyCode"), QStringLiteral("40"));
    EXPECT_EQ(content.shortcutText(), QStringLiteral("⇧⌘Space"));
}

TEST_F(MenuBar, aKeyWithoutANameShowsAsAQuestionMark) {
    preferences->set(QStringLiteral("globalHotkeyKeyCode"), qint64(18));
    EXPECT_EQ(content.shortcutText(), QStringLiteral("⇧⌘?"));
}

TEST_F(MenuBar, quickAccessTogglesThePanel) {
    const auto container = makeContainer();
    QuickAccessWindowManager::shared().setModelContainer(container.get());
    choose(0);
    EXPECT_TRUE(QuickAccessWindowManager::shared().isVisible());
    choose(0);
    EXPECT_FALSE(QuickAccessWindowManager::shared().isVisible());
    QuickAccessWindowManager::shared().setModelContainer(nullptr);
}

TEST_F(MenuBar, openingGoesThroughItsFiveSteps) {
    QWidget main;
    main.setObjectName(QStringLiteral("main"));
    DockVisibilityController::shared().setPolicy(ActivationPolicy::accessory);
    desktop.calls.clear();
    choose(2);
    EXPECT_EQ(desktop.calls,
              (QStringList{QStringLiteral("setActivationPolicy regular"), QStringLiteral("openWindow")}));
    EXPECT_TRUE(MainWindowFocusManager::shared().pendingFocus);
    EXPECT_EQ(opened, 1);

    clock.advance(99ms);
    EXPECT_TRUE(desktop.callsOf(QStringLiteral("showAndActivate")).isEmpty());
    clock.advance(1ms);
    EXPECT_EQ(desktop.calls.mid(2), (QStringList{QStringLiteral("showAndActivate main 0"),
                                                 QStringLiteral("activateIgnoringOtherApps main")}));
}

TEST_F(MenuBar, openingFindsNoOtherWindowThanTheMainOne) {
    QWidget other;
    other.setObjectName(QStringLiteral("mainly another"));
    choose(2);
    clock.advance(1s);
    EXPECT_TRUE(desktop.callsOf(QStringLiteral("showAndActivate")).isEmpty());
    EXPECT_TRUE(desktop.callsOf(QStringLiteral("activateIgnoringOtherApps")).isEmpty()) << "it is not open";
}

TEST_F(MenuBar, openingWithoutAMainWindowStillBringsTheProgramForward) {
    QWidget other;
    other.setObjectName(QStringLiteral("welcome"));
    other.show();
    choose(2);
    clock.advance(1s);
    EXPECT_TRUE(desktop.callsOf(QStringLiteral("showAndActivate")).isEmpty());
    EXPECT_EQ(desktop.callsOf(QStringLiteral("activateIgnoringOtherApps")),
              QStringList{QStringLiteral("activateIgnoringOtherApps welcome")});
}

TEST_F(MenuBar, oddity_openingAsksForTheFocusBeforeAndAfterTheWindowOpens) {
    bool wasPending = false;
    content.openWindow = [&wasPending] {
        wasPending = MainWindowFocusManager::shared().pendingFocus;
        MainWindowFocusManager::shared().reset();
    };
    choose(2);
    EXPECT_TRUE(wasPending);
    EXPECT_TRUE(MainWindowFocusManager::shared().pendingFocus);
}

TEST_F(MenuBar, quitEndsTheProgram) {
    EXPECT_EQ(runUntilExit([this] { choose(6); }), 0);
}

TEST_F(MenuBar, whileACheckForUpdatesRunsItsEntryIsGreyedOut) {
    SparkleUpdaterManager& updates = SparkleUpdaterManager::shared();
    const QAction* entry = content.menu()->actions().at(4);
    EXPECT_TRUE(entry->isEnabled());
    choose(4);
    EXPECT_TRUE(updates.isCheckingForUpdates());
    EXPECT_FALSE(entry->isEnabled());
    updates.updaterDidNotFindUpdate();
    EXPECT_TRUE(entry->isEnabled());
    updates.setUpdateInProgress(true);
    EXPECT_FALSE(entry->isEnabled());
    updates.setUpdateInProgress(false);
    EXPECT_TRUE(entry->isEnabled());
}

TEST_F(MenuBar, withAnUpdateWaitingItsEntrySaysSo) {
    SparkleUpdaterManager::shared().setUpdateAvailable(true);
    EXPECT_EQ(texts().at(4), QStringLiteral("Check for Updates (Available!)"));
    SparkleUpdaterManager::shared().setUpdateAvailable(false);
    EXPECT_EQ(texts().at(4), QStringLiteral("Check for Updates"));
}

TEST_F(MenuBar, theIconIsThereInTheSizesOfStatusAreas) {
    const QIcon icon = MenuBarContent::icon();
    for (const int size : {16, 22, 24, 32, 48}) {
        const QImage image = icon.pixmap(size).toImage();
        EXPECT_EQ(image.width(), size);
        EXPECT_GT(image.pixelColor(size / 2, size / 2).alpha(), 0) << size;
    }
}

} // namespace
} // namespace Quillstacks
