#include "interface/ScrollArea.h"
#include "WelcomeFixture.h"

#include <QScreen>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QWindow>

namespace Quillstacks {
namespace {

using namespace std::chrono_literals;

class WelcomeWindow : public WelcomeFixture {
protected:
    static QRect room() { return QGuiApplication::primaryScreen()->availableGeometry(); }
    static QRect cardOnScreen() { return window()->cardRect().translated(window()->pos()); }
};

TEST_F(WelcomeWindow, hasTheSizeOfTheWelcomeInTheMiddleOfTheMainScreen) {
    open();
    EXPECT_EQ(SplashScreenWindowManager::contentSize, QSize(600, 850));
    const QSize size = QSize(600, 850).boundedTo(room().size());
    EXPECT_EQ(cardOnScreen(), QRect(room().x() + (room().width() - size.width()) / 2,
                                    room().y() + (room().height() - size.height()) / 2, size.width(), size.height()));
    EXPECT_EQ(view()->geometry(), window()->cardRect());
}

TEST_F(WelcomeWindow, isAWindowOfItsOwnWithoutAFrame) {
    open();
    EXPECT_EQ(window()->objectName(), QStringLiteral("splash-screen"));
    EXPECT_EQ(window()->windowType(), Qt::Window);
    EXPECT_TRUE(window()->windowFlags().testFlag(Qt::FramelessWindowHint));
    EXPECT_FALSE(window()->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    EXPECT_EQ(window()->minimumSize(), window()->maximumSize());
}

TEST_F(WelcomeWindow, onAScreenThatIsTooLowItStaysInsideAndScrollsAndItsButtonCanBeReached) {
    open();
    QScreen* screen = QGuiApplication::primaryScreen();
    window()->centre(screen, QSize(600, 4000));
    QCoreApplication::processEvents();
    EXPECT_TRUE(room().contains(window()->geometry()));
    EXPECT_EQ(cardOnScreen().height(), room().height());
    window()->centre(screen, QSize(600, 400)); // as high as such a screen
    QCoreApplication::processEvents();
    const auto* scroll = view()->findChild<ScrollArea*>();
    EXPECT_GT(scroll->verticalScrollBar()->maximum(), 0);
    const Button* finish = button("Got it, let's go!");
    EXPECT_TRUE(view()->rect().contains(QRect(finish->mapTo(view(), QPoint(0, 0)), finish->size())));
    click(finish);
    EXPECT_TRUE(SplashScreenManager::shared().hasShownSplashScreen());
}

TEST_F(WelcomeWindow, onALowScreenTheTabKeyScrollsItsControlsIntoView) {
    open();
    window()->centre(QGuiApplication::primaryScreen(), QSize(600, 260));
    QCoreApplication::processEvents();
    const auto* scroll = view()->findChild<ScrollArea*>();
    for (int i = 0; i < 5 && QApplication::focusWidget() != button("Change"); ++i)
        press(Qt::Key_Tab);
    ASSERT_EQ(QApplication::focusWidget(), button("Change"));
    press(Qt::Key_End);
    EXPECT_EQ(scroll->verticalScrollBar()->value(), scroll->verticalScrollBar()->maximum());
    press(Qt::Key_Backtab);
    press(Qt::Key_Tab);
    ASSERT_EQ(QApplication::focusWidget(), button("Change"));
    const Button* change = button("Change");
    EXPECT_TRUE(
        scroll->viewport()->rect().contains(QRect(change->mapTo(scroll->viewport(), QPoint(0, 0)), change->size())));
}

TEST_F(WelcomeWindow, tellsBeforeItShows) {
    welcome().onShow = [this] { told += window()->isVisible() ? QStringLiteral("late") : QStringLiteral("before"); };
    open();
    EXPECT_EQ(told, QStringList{QStringLiteral("before")});
}

TEST_F(WelcomeWindow, fadesInOnTheNextTurnAndStandsInFrontOfTheMainWindow) {
    welcome().show({});
    EXPECT_TRUE(window()->isVisible());
    EXPECT_EQ(window()->windowOpacity(), 0);
    EXPECT_EQ(desktop.callsOf(QStringLiteral("showAndActivate")), QStringList{});
    turn();
    EXPECT_EQ(desktop.callsOf(QStringLiteral("showAndActivate")),
              QStringList{QStringLiteral("showAndActivate splash-screen 0")});
    EXPECT_TRUE(QTest::qWaitFor([] { return window()->windowOpacity() >= 1; }));
}

TEST_F(WelcomeWindow, aKeyboardThatStayedWithTheMainWindowIsTakenOnceItHasComeIn) {
    QWidget main;
    main.show();
    welcome().show({});
    turn();
    {
        // As if the welcome had never had it: no move is told.
        const QSignalBlocker untold(qApp);
        main.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&main));
    }
    EXPECT_TRUE(QTest::qWaitFor([] { return window()->windowOpacity() >= 1 && window()->isActiveWindow(); }));
    EXPECT_EQ(desktop.callsOf(QStringLiteral("showAndActivate splash-screen")).size(), 2);
}

TEST_F(WelcomeWindow, aKeyboardThatMovesToTheMainWindowWhileItComesIsTakenBackAtOnce) {
    QWidget main;
    main.show();
    open();
    // What the toolkit believes a moment later is not asked: here it never hears of the move.
    desktop.calls.clear();
    Q_EMIT qApp->focusWindowChanged(main.windowHandle());
    EXPECT_EQ(desktop.calls, QStringList{QStringLiteral("showAndActivate splash-screen 0")});
    EXPECT_TRUE(window()->isActiveWindow());
    clock.advance(2s);
    desktop.calls.clear();
    Q_EMIT qApp->focusWindowChanged(main.windowHandle());
    EXPECT_EQ(desktop.calls, QStringList{}) << "whoever goes there now wants to";
}

TEST_F(WelcomeWindow, aPanelOrAnotherProgramKeepsTheKeyboardWhileItComes) {
    QWidget panel(nullptr, Qt::Tool | Qt::FramelessWindowHint);
    panel.show();
    open();
    desktop.calls.clear();
    Q_EMIT qApp->focusWindowChanged(panel.windowHandle());
    Q_EMIT qApp->focusWindowChanged(nullptr);
    EXPECT_EQ(desktop.calls, QStringList{});
}

TEST_F(WelcomeWindow, aDismissalLeavesTheKeyboardToTheMainWindow) {
    QWidget main;
    main.show();
    open();
    desktop.calls.clear();
    welcome().dismiss();
    Q_EMIT qApp->focusWindowChanged(main.windowHandle());
    ASSERT_TRUE(QTest::qWaitFor([] { return !window()->isVisible(); }));
    Q_EMIT qApp->focusWindowChanged(main.windowHandle());
    EXPECT_EQ(desktop.callsOf(QStringLiteral("showAndActivate splash-screen")), QStringList{});
}

TEST_F(WelcomeWindow, aDismissalFadesItOutAndCloses) {
    open();
    ASSERT_TRUE(QTest::qWaitFor([] { return window()->windowOpacity() >= 1; }));
    welcome().dismiss();
    EXPECT_TRUE(window()->isVisible());
    EXPECT_TRUE(QTest::qWaitFor([] { return !window()->isVisible(); }));
    EXPECT_EQ(window()->windowOpacity(), 0);
}

TEST_F(WelcomeWindow, theDismissalIsToldATenthOfASecondLaterAndOnce) {
    open();
    told.clear();
    welcome().dismiss();
    welcome().dismiss();
    clock.advance(99ms);
    EXPECT_EQ(told, QStringList{});
    clock.advance(1ms);
    EXPECT_EQ(told, QStringList{QStringLiteral("dismissed")});
    ASSERT_TRUE(QTest::qWaitFor([] { return !window()->isVisible(); }));
    clock.advance(1s);
    EXPECT_EQ(told.size(), 1);
}

TEST_F(WelcomeWindow, aCloseByTheWindowManagerIsToldLikeADismissal) {
    open();
    told.clear();
    window()->close();
    EXPECT_FALSE(window()->isVisible());
    clock.advance(100ms);
    EXPECT_EQ(told, QStringList{QStringLiteral("dismissed")});
}

TEST_F(WelcomeWindow, theSameWindowIsShownAgain) {
    open();
    const SplashScreenWindow* first = window();
    window()->close();
    welcome().show({});
    EXPECT_EQ(window(), first);
    EXPECT_TRUE(window()->isVisible());
    turn();
    EXPECT_TRUE(QTest::qWaitFor([] { return window()->windowOpacity() >= 1; }));
}

TEST_F(WelcomeWindow, withoutCompositingItIsSquareAndHasNoRoomForAShadow) {
    desktop.setComposited(false);
    open();
    EXPECT_EQ(window()->cardRect(), window()->rect());
    const QImage picture = window()->grab().toImage();
    EXPECT_EQ(picture.pixelColor(1, 1).alpha(), 255);
    desktop.setComposited(true);
    QCoreApplication::processEvents();
    EXPECT_LT(window()->grab().toImage().pixelColor(window()->cardRect().topLeft() + QPoint(1, 1)).alphaF(), 0.5);
}

TEST_F(WelcomeWindow, isMovedByItsGround) {
    open();
    window()->centre(QGuiApplication::primaryScreen(), QSize(400, 300));
    const QPoint before = window()->pos();
    const QPoint ground = window()->cardRect().topLeft() + QPoint(8, 8);
    QTest::mousePress(window()->windowHandle(), Qt::LeftButton, {}, ground);
    QTest::mouseMove(window()->windowHandle(), ground + QPoint(20, 10));
    EXPECT_EQ(window()->pos(), before + QPoint(20, 10));
    QTest::mouseRelease(window()->windowHandle(), Qt::LeftButton, {}, ground);
    const QPoint after = window()->pos();
    QTest::mouseMove(window()->windowHandle(), ground + QPoint(50, 50));
    EXPECT_EQ(window()->pos(), after);
}

} // namespace
} // namespace Quillstacks
