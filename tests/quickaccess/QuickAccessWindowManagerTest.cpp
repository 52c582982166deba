#include "quickaccess/QuickAccessWindowManager.h"

#include "QuickAccessFixture.h"

#include <QGuiApplication>
#include <QPropertyAnimation>
#include <QScreen>
#include <QWindow>

namespace Quillstacks {
namespace {

class QuickAccessWindow : public LibraryFixture {
protected:
    QuickAccessWindow() { manager.setModelContainer(&container); }

    void toggle() {
        manager.toggle();
        if (manager.isVisible()) {
            EXPECT_TRUE(QTest::qWaitForWindowActive(manager.windowController()));
        }
        QTest::qWait(0);
    }
    [[nodiscard]] QuickAccessPanel* panel() const { return manager.windowController(); }
    [[nodiscard]] QuickAccessView* view() const { return manager.rootView(); }
    static QRect visibleFrame() { return QGuiApplication::primaryScreen()->availableGeometry(); }
    static void tellApplicationState(Qt::ApplicationState state) {
        Q_EMIT qApp->applicationStateChanged(state);
        QTest::qWait(0);
    }
    static FakeDesktop& desktop() { return FakeDesktop::shared(); }

    QuickAccessWindowManager manager;
};

TEST_F(QuickAccessWindow, withoutAStoreNothingIsShown) {
    QuickAccessWindowManager empty;
    empty.toggle();
    EXPECT_FALSE(empty.isVisible());
    EXPECT_EQ(empty.windowController(), nullptr);
    EXPECT_TRUE(desktop().callsOf(QStringLiteral("showAndActivate")).isEmpty());
}

TEST_F(QuickAccessWindow, thePanelIsCreatedWithTheFirstShowAndKept) {
    EXPECT_EQ(panel(), nullptr);
    toggle();
    const auto* first = panel();
    ASSERT_TRUE(first);
    toggle();
    EXPECT_EQ(panel(), first);
    toggle();
    EXPECT_EQ(panel(), first);
    EXPECT_EQ(desktop().callsOf(QStringLiteral("preparePanel")).size(), 1);
}

TEST_F(QuickAccessWindow, itIsAFloatingTranslucentPanelWithoutAFrame) {
    toggle();
    EXPECT_TRUE(panel()->windowFlags().testFlag(Qt::FramelessWindowHint));
    EXPECT_TRUE(panel()->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    EXPECT_EQ(panel()->windowType(), Qt::Tool);
    EXPECT_TRUE(panel()->testAttribute(Qt::WA_TranslucentBackground));
    EXPECT_EQ(panel()->objectName(), QStringLiteral("quick-access"));
}

TEST_F(QuickAccessWindow, aPressWhileItIsVisibleClosesItAndTheNextShowsAFreshView) {
    for (int i = 0; i < 3; ++i)
        add(QStringLiteral("prompt %1").arg(i), QStringLiteral("body"));
    toggle();
    QTest::keyClicks(view()->searchRow()->field(), QStringLiteral("prompt"));
    QTest::keyClick(view()->searchRow()->field(), Qt::Key_Down);
    ASSERT_EQ(view()->selectedIndex(), 1);
    toggle();
    EXPECT_FALSE(manager.isVisible());
    toggle();
    EXPECT_TRUE(manager.isVisible());
    EXPECT_EQ(view()->searchText(), QString());
    EXPECT_EQ(view()->searchRow()->field()->text(), QString());
    EXPECT_EQ(view()->selectedIndex(), 0);
    EXPECT_TRUE(view()->isSearchFocused());
}

TEST_F(QuickAccessWindow, theNextViewIsBuiltAheadAndShowsTheLibraryAsItIsThen) {
    toggle();
    toggle();
    const auto* ahead = view();
    add(QStringLiteral("added while it was closed"));
    toggle();
    EXPECT_EQ(view(), ahead);
    ASSERT_TRUE(view()->resultList()->row(0));
    EXPECT_EQ(view()->resultList()->row(0)->prompt()->title(), QStringLiteral("added while it was closed"));
}

TEST_F(QuickAccessWindow, thePreparedViewIsTheOneThatIsShown) {
    manager.prepare();
    const auto* prepared = view();
    ASSERT_TRUE(prepared);
    EXPECT_FALSE(manager.isVisible());
    toggle();
    EXPECT_EQ(view(), prepared);
}

TEST_F(QuickAccessWindow, aPreparedViewShowsWhatChangedBeforeThePress) {
    Prompt* prompt = add(QStringLiteral("letter"), QStringLiteral("short"));
    manager.prepare();
    prompt->setBody(QStringLiteral("word ").repeated(200));
    prompt->setTitle(QStringLiteral("renamed"));
    toggle();
    ASSERT_TRUE(view()->resultList()->row(0));
    EXPECT_EQ(view()->resultList()->titleAt(0), QStringLiteral("renamed"));
    const auto metrics = QuickAccessRow::Metrics::current();
    const QuickAccessRow* row = view()->resultList()->row(0);
    EXPECT_EQ(row->height(), QuickAccessRow::heightFor(*prompt, row->width(), metrics));
}

TEST_F(QuickAccessWindow, thePictureOfAPreparedPanelIsThereBeforeIt) {
    add(QStringLiteral("letter"), QStringLiteral("Dear {{name}}"));
    manager.prepare();
    const QImage picture = desktop().firstPictures[panel()];
    EXPECT_EQ(picture.size(), panel()->size() * panel()->devicePixelRatioF());
    toggle();
    // The search field has its cursor only once it has the keyboard.
    const QRect below(QPoint(0, view()->searchRow()->geometry().bottom() + 1), picture.rect().bottomRight());
    EXPECT_EQ(picture.copy(below), panel()->grab().toImage().convertToFormat(picture.format()).copy(below));
}

TEST_F(QuickAccessWindow, aChangeWhileItIsHiddenTakesThePictureBackAndOneIsMadeAnewOnceItIsQuiet) {
    using namespace std::chrono_literals;
    Prompt* prompt = add(QStringLiteral("letter"));
    manager.prepare();
    const QImage before = desktop().firstPictures[panel()];
    prompt->setTitle(QStringLiteral("renamed"));
    context.processPendingChanges();
    EXPECT_FALSE(desktop().firstPictures.contains(panel()));
    clock.advance(499ms);
    prompt->setTitle(QStringLiteral("renamed again"));
    context.processPendingChanges();
    clock.advance(499ms);
    QTest::qWait(0);
    EXPECT_FALSE(desktop().firstPictures.contains(panel()));
    clock.advance(1ms);
    QTest::qWait(0);
    ASSERT_TRUE(desktop().firstPictures.contains(panel()));
    EXPECT_NE(desktop().firstPictures[panel()], before);
}

TEST_F(QuickAccessWindow, aChangeThatNobodyHeardOfBeforeThePressTakesThePictureBack) {
    Prompt* prompt = add(QStringLiteral("letter"));
    manager.prepare();
    prompt->setTitle(QStringLiteral("renamed"));
    toggle();
    EXPECT_FALSE(desktop().firstPictures.contains(panel()));
}

TEST_F(QuickAccessWindow, anotherLibraryIsNeverSeenInThePictureOfTheOneBefore) {
    add(QStringLiteral("letter"));
    manager.prepare();
    manager.setModelContainer(nullptr);
    manager.setModelContainer(&container);
    ASSERT_TRUE(desktop().firstPictures.contains(panel()));
    toggle();
    EXPECT_FALSE(desktop().firstPictures.contains(panel()));
}

TEST_F(QuickAccessWindow, theSwitchOfTheFooterIsPartOfThePicture) {
    manager.prepare();
    ASSERT_TRUE(desktop().firstPictures.contains(panel()));
    const auto& preference = enableVariableSubstitutionPreference();
    preference.set(!preference.value());
    EXPECT_FALSE(desktop().firstPictures.contains(panel()));
}

TEST_F(QuickAccessWindow, aRowGrowsWithItsBodyWhileThePanelIsOpen) {
    Prompt* prompt = add(QStringLiteral("letter"), QStringLiteral("short"));
    toggle();
    ASSERT_TRUE(view()->resultList()->row(0));
    const int before = view()->resultList()->row(0)->height();
    prompt->setBody(QStringLiteral("word ").repeated(200));
    context.processPendingChanges();
    ASSERT_TRUE(view()->resultList()->row(0));
    EXPECT_EQ(view()->resultList()->row(0)->height(), before + QuickAccessRow::Metrics::current().bodyLine);
}

TEST_F(QuickAccessWindow, aFillInSheetThatWasOpenIsGoneWithTheNextShow) {
    add(QStringLiteral("letter"), QStringLiteral("{name}"));
    toggle();
    view()->chooseSelected();
    ASSERT_TRUE(Sheet::top(panel()));
    toggle();
    toggle();
    EXPECT_EQ(Sheet::top(panel()), nullptr);
    EXPECT_FALSE(view()->showVariableSubstitution());
}

TEST_F(QuickAccessWindow, itOpensInTheMiddleOfTheVisibleFrame) {
    toggle();
    const QRect visible = visibleFrame();
    EXPECT_EQ(panel()->size(), QSize(712, 552));
    EXPECT_EQ(panel()->geometry(),
              QRect(visible.x() + (visible.width() - 712) / 2, visible.y() + (visible.height() - 552) / 2, 712, 552));
}

TEST_F(QuickAccessWindow, theScreenUnderTheMouseIsTaken) {
    desktop().mouse = QPoint(1234, 567);
    QPoint asked;
    desktop().screenFor = [&](const QPoint& point) {
        asked = point;
        return QGuiApplication::primaryScreen();
    };
    toggle();
    EXPECT_EQ(asked, QPoint(1234, 567));
}

TEST_F(QuickAccessWindow, withTheMouseOutsideEveryScreenItOpensOnTheMainScreen) {
    desktop().mouse = QPoint(-5000, -5000);
    toggle();
    EXPECT_TRUE(manager.isVisible());
    EXPECT_EQ(panel()->geometry().center(), visibleFrame().center());
}

TEST_F(QuickAccessWindow, aPositionThatTheUserDraggedItToIsNotRemembered) {
    toggle();
    const QPoint middle = panel()->pos();
    panel()->move(5, 7);
    toggle();
    toggle();
    EXPECT_EQ(panel()->pos(), middle);
}

TEST_F(QuickAccessWindow, itIsShownAndActivatedWithTheTimeOfThePress) {
    desktop().eventTime = 4711;
    toggle();
    EXPECT_EQ(desktop().callsOf(QStringLiteral("showAndActivate")),
              QStringList{QStringLiteral("showAndActivate quick-access 4711")});
    EXPECT_EQ(desktop().lastActivated, panel());
}

TEST_F(QuickAccessWindow, aPanelThatNoPressOpensComesWithoutTheTimeOfAnEarlierOne) {
    desktop().eventTime = 4711;
    toggle();
    desktop().eventTime = 4712;
    toggle(); // this press closed it
    desktop().calls.clear();
    toggle();
    EXPECT_EQ(desktop().callsOf(QStringLiteral("showAndActivate")),
              QStringList{QStringLiteral("showAndActivate quick-access 0")});
}

TEST_F(QuickAccessWindow, itFadesInOver120MillisecondsOnceItIsOnScreen) {
    manager.toggle();
    EXPECT_TRUE(manager.isVisible());
    EXPECT_EQ(panel()->windowOpacity(), 0.0);
    EXPECT_EQ(panel()->findChild<QPropertyAnimation*>(), nullptr); // in a turn of its own
    QTest::qWait(0);
    auto* fade = panel()->findChild<QPropertyAnimation*>();
    ASSERT_TRUE(fade);
    EXPECT_EQ(fade->propertyName(), QByteArray("windowOpacity"));
    EXPECT_EQ(fade->duration(), 120);
    EXPECT_TRUE(QTest::qWaitFor([this] { return panel()->windowOpacity() >= 1.0; }, 3000));
}

TEST_F(QuickAccessWindow, itClosesWithoutAFade) {
    toggle();
    manager.close();
    EXPECT_FALSE(panel()->isVisible());
    manager.toggle();
    EXPECT_EQ(panel()->windowOpacity(), 0.0);
}

TEST_F(QuickAccessWindow, withoutACompositorItIsOpaqueAtOnceAndSquare) {
    desktop().setComposited(false);
    toggle();
    EXPECT_EQ(panel()->windowOpacity(), 1.0);
    EXPECT_EQ(view()->cardRect(), QRect(0, 0, 712, 552));
    EXPECT_EQ(view()->cardRadius(), 0);
    desktop().setComposited(true);
    EXPECT_EQ(view()->cardRect(), QRect(16, 16, 680, 520));
    EXPECT_EQ(view()->cardRadius(), 16);
}

TEST_F(QuickAccessWindow, withoutACompositorEveryPixelIsOpaque) {
    desktop().setComposited(false);
    add(QStringLiteral("prompt"), QStringLiteral("body"));
    toggle();
    QImage image(panel()->size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    panel()->render(&image, {}, {}, QWidget::DrawChildren);
    for (const QPoint corner : {QPoint(0, 0), QPoint(711, 0), QPoint(0, 551), QPoint(711, 551), QPoint(350, 300)})
        EXPECT_EQ(qAlpha(image.pixel(corner)), 255) << corner.x() << ',' << corner.y();
}

TEST_F(QuickAccessWindow, whatLiesBehindTheCardIsBlurred) {
    toggle();
    EXPECT_EQ(desktop().blurred[panel()], QRect(16, 16, 680, 520));
}

TEST_F(QuickAccessWindow, theBlurFollowsTheCard) {
    desktop().setComposited(false);
    toggle();
    EXPECT_FALSE(desktop().blurred.contains(panel()));
    desktop().setComposited(true);
    EXPECT_EQ(desktop().blurred[panel()], QRect(16, 16, 680, 520));
    panel()->resize(600, 400);
    EXPECT_EQ(desktop().blurred[panel()], QRect(16, 16, 568, 368));
}

TEST_F(QuickAccessWindow, itsTitleIsForPeople) {
    toggle();
    EXPECT_EQ(panel()->windowTitle(), QStringLiteral("Quick access"));
    EXPECT_EQ(panel()->windowRole(), QStringLiteral("quick-access"));
}

TEST_F(QuickAccessWindow, itClosesWhenTheProgramLosesTheActiveState) {
    toggle();
    ASSERT_TRUE(panel()->wasActive());
    tellApplicationState(Qt::ApplicationInactive);
    EXPECT_FALSE(manager.isVisible());
}

TEST_F(QuickAccessWindow, afterThatTheNextPressShowsItAgain) {
    toggle();
    tellApplicationState(Qt::ApplicationInactive);
    toggle();
    EXPECT_TRUE(manager.isVisible());
}

TEST_F(QuickAccessWindow, itStaysWhileTheActiveStateMovesToAnotherWindowOfTheProgram) {
    toggle();
    QWidget mainWindow;
    mainWindow.show();
    mainWindow.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&mainWindow));
    EXPECT_TRUE(manager.isVisible());
    // For a moment no window has it.
    Q_EMIT qApp->applicationStateChanged(Qt::ApplicationInactive);
    Q_EMIT qApp->applicationStateChanged(Qt::ApplicationActive);
    QTest::qWait(0);
    EXPECT_TRUE(manager.isVisible());
}

TEST_F(QuickAccessWindow, aPanelThatWasNeverActiveIsNotClosedWhileItComesUp) {
    manager.toggle();
    ASSERT_TRUE(manager.isVisible());
    ASSERT_FALSE(panel()->wasActive());
    Q_EMIT qApp->applicationStateChanged(Qt::ApplicationInactive);
    QCoreApplication::sendPostedEvents(); // what is queued, without the window system's own events
    ASSERT_FALSE(panel()->wasActive());
    EXPECT_TRUE(manager.isVisible());
}

TEST_F(QuickAccessWindow, theViewClosesIt) {
    add(QStringLiteral("plain"), QStringLiteral("text"));
    toggle();
    QTest::keyClick(view()->searchRow()->field(), Qt::Key_Return);
    EXPECT_FALSE(manager.isVisible());
    EXPECT_EQ(desktop().clipboardText, QStringLiteral("text"));
}

TEST_F(QuickAccessWindow, closingItByTheWindowManagerNeedsNoBookkeeping) {
    toggle();
    panel()->close();
    EXPECT_FALSE(manager.isVisible());
    toggle();
    EXPECT_TRUE(manager.isVisible());
}

TEST_F(QuickAccessWindow, takingTheStoreAwayTakesThePanelAway) {
    toggle();
    manager.setModelContainer(nullptr);
    EXPECT_FALSE(manager.isVisible());
    EXPECT_EQ(manager.rootView(), nullptr);
    QTest::qWait(0);
    EXPECT_EQ(manager.rootView(), nullptr);
    manager.toggle();
    EXPECT_FALSE(manager.isVisible());
}

TEST_F(QuickAccessWindow, itIsMovedByItsBackground) {
    toggle();
    const QPoint before = panel()->pos();
    const QPoint grip(300, 552 - 16 - 22);      // the footer, between the hints
    ASSERT_NE(panel()->childAt(grip), nullptr); // what lies there lets the mouse through
    QWindow* window = panel()->windowHandle();
    QTest::mousePress(window, Qt::LeftButton, {}, grip);
    QTest::mouseMove(window, grip + QPoint(40, 0));
    QTest::mouseRelease(window, Qt::LeftButton, {}, grip);
    EXPECT_EQ(panel()->pos(), before + QPoint(40, 0));
}

TEST_F(QuickAccessWindow, thereIsOneForTheWholeProgram) {
    EXPECT_EQ(&QuickAccessWindowManager::shared(), &QuickAccessWindowManager::shared());
    EXPECT_EQ(QuickAccessWindowManager::contentSize, QSize(712, 552));
}

} // namespace
} // namespace Quillstacks
