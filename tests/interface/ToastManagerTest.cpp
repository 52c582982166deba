#include "interface/ToastManager.h"

#include "Fixture.h"
#include "foundation/ManualClock.h"
#include "interface/Spring.h"
#include "interface/ToastModifier.h"
#include "interface/ToastView.h"

#include <QSignalSpy>

namespace Quillstacks {
namespace {

using namespace std::chrono_literals;

class ToastManagerOf : public InterfaceTest {
protected:
    ToastManagerOf() { clock.advance(10s); }
    ~ToastManagerOf() override { clock.advance(10s); }

    ManualClock clock;
    ToastManager& manager = ToastManager::shared();
};

TEST_F(ToastManagerOf, itHidesAfterItsDurationAndKeepsItsText) {
    manager.show(QStringLiteral("Copied to clipboard"), 2.0);
    EXPECT_TRUE(manager.isShowing());
    clock.advance(1999ms);
    EXPECT_TRUE(manager.isShowing());
    clock.advance(1ms);
    EXPECT_FALSE(manager.isShowing());
    EXPECT_EQ(manager.message(), QStringLiteral("Copied to clipboard"));
}

TEST_F(ToastManagerOf, theTimerOfTheOlderToastHidesTheNewer) {
    manager.show(QStringLiteral("first"), 2.0);
    clock.advance(1500ms);
    manager.show(QStringLiteral("second"), 2.0);
    EXPECT_EQ(manager.message(), QStringLiteral("second"));
    clock.advance(499ms);
    EXPECT_TRUE(manager.isShowing());
    clock.advance(1ms);
    EXPECT_FALSE(manager.isShowing());
    QSignalSpy changes(&manager, &ToastManager::isShowingChanged);
    clock.advance(5s); // the second's timer finds nothing to do
    EXPECT_EQ(changes.count(), 0);
}

TEST_F(ToastManagerOf, theSameTextTwiceStillStartsASecondTimer) {
    manager.show(QStringLiteral("Pinned"), 4.0);
    QSignalSpy messages(&manager, &ToastManager::messageChanged);
    manager.show(QStringLiteral("Pinned"), 2.0);
    EXPECT_EQ(messages.count(), 0);
    clock.advance(2s);
    EXPECT_FALSE(manager.isShowing());
}

TEST_F(ToastManagerOf, anEmptyTextShowsAnEmptyBox) {
    ToastModifier modifier(&window);
    showWindow();
    manager.show({}, 2.0);
    EXPECT_TRUE(manager.isShowing());
    EXPECT_TRUE(modifier.view()->isVisible());
    EXPECT_EQ(modifier.view()->groundSize(500), QSize(40, 44));
}

TEST_F(ToastManagerOf, theToastStandsAboveTheBottomEdgeInTheMiddle) {
    ToastModifier modifier(&window);
    showWindow({800, 600});
    manager.show(QStringLiteral("Copied to clipboard"), 2.0);
    const int margin = ToastView::shadowMargin();
    const auto ground = [&] { return modifier.view()->geometry().adjusted(margin, margin, -margin, -margin); };
    ASSERT_TRUE(QTest::qWaitFor([&] { return ground().bottom() == 600 - 24 - 1; }, 3000));
    EXPECT_NEAR(ground().center().x(), 400, 1);
    EXPECT_EQ(ground().height(), 44);
    clock.advance(2s);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !modifier.view()->isVisible(); }, 3000));
}

TEST_F(ToastManagerOf, itComesInWithOneSpringAndGoesOutWithTheOther) {
    const auto moves = [](const ToastModifier& modifier, const Spring& spring) {
        const QEasingCurve curve = modifier.movement().easingCurve();
        const double seconds = std::chrono::duration<double>(spring.duration).count();
        for (const double part : {0.1, 0.3, 0.5, 0.7, 0.9})
            EXPECT_NEAR(curve.valueForProgress(part), spring.value(part * seconds), 1e-9) << part;
        EXPECT_EQ(modifier.movement().duration(), spring.duration.count());
    };
    const ToastModifier modifier(&window);
    showWindow();
    manager.show(QStringLiteral("Pinned"), 2.0);
    moves(modifier, Springs::toastIn);
    EXPECT_EQ(modifier.movement().endValue(), 1.0);
    clock.advance(2s);
    moves(modifier, Springs::toastOut);
    EXPECT_EQ(modifier.movement().endValue(), 0.0);
}

TEST_F(ToastManagerOf, aTextOfAnyLengthStaysWithinItsHost) {
    ToastView view;
    view.setMessage(QString(100'000, QLatin1Char('m')));
    EXPECT_LE(view.groundSize(400).width(), 400);
    EXPECT_EQ(view.groundSize(400).height(), 3 * 20 + 24);
}

} // namespace
} // namespace Quillstacks
