#include "platform/Windows.h"
#include "OtherClient.h"
#include "platform/HotKeys.h"
#include "Tool.h"

#include <QDeadlineTimer>
#include <QImage>
#include <QLineEdit>
#include <QPainter>
#include <QScreen>
#include <QTest>
#include <QWidget>

#include <gtest/gtest.h>

namespace Quillstacks {

namespace {

class Painted final : public QWidget {
public:
    Painted(QWidget* parent, const QColor& filling) : QWidget(parent), color(filling) { setGeometry(parent->rect()); }

private:
    void paintEvent(QPaintEvent* /*event*/) override { QPainter(this).fillRect(rect(), color); }

    const QColor color;
};

class WindowsOnX11 : public testing::Test {
protected:
    static xcb_window_t idOf(const QWidget& widget) { return static_cast<xcb_window_t>(widget.winId()); }
    [[nodiscard]] bool hasState(const QWidget& widget, const char* state) {
        return std::ranges::count(other.property(idOf(widget), "_NET_WM_STATE"), other.atom(state)) > 0;
    }
    /// The time of the user's last action, as the window tells it; some window managers let it stand on a second one.
    [[nodiscard]] quint32 userTimeOf(const QWidget& widget) {
        const auto elsewhere = other.property(idOf(widget), "_NET_WM_USER_TIME_WINDOW");
        const auto values = other.property(elsewhere.empty() ? idOf(widget) : elsewhere.front(), "_NET_WM_USER_TIME");
        return values.empty() ? 0 : values.front();
    }
    /// Another program's window, with the focus.
    void focusElsewhere() {
        const xcb_window_t window = other.showWindow();
        ASSERT_TRUE(eventually([&] { return other.activeWindow() == window; }));
    }
    static std::unique_ptr<QWidget> makePanel() {
        auto panel = std::make_unique<QWidget>(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
        panel->setAttribute(Qt::WA_TranslucentBackground);
        panel->resize(300, 200);
        Windows::preparePanel(panel.get());
        return panel;
    }

    OtherClient other;
};

TEST_F(WindowsOnX11, showAndActivateTakesTheFocusFromAnotherProgram) {
    const auto panel = makePanel();
    for (int turn = 0; turn < 3; ++turn) {
        focusElsewhere();
        Windows::showAndActivate(panel.get(), 0);
        EXPECT_TRUE(eventually([&] { return panel->isActiveWindow() && other.activeWindow() == idOf(*panel); }));
        panel->hide();
    }
}

TEST_F(WindowsOnX11, aPanelThatIsShownAgainRightAfterItsHideTakesKeys) {
    const auto panel = makePanel();
    QLineEdit field(panel.get());
    for (int turn = 0; turn < 3; ++turn) {
        Windows::showAndActivate(panel.get(), 0);
        field.setFocus();
        ASSERT_TRUE(eventually([&] { return field.hasFocus(); })) << turn;
        field.clear();
        // The first may still go to where the focus was before.
        EXPECT_TRUE(eventually([&] {
            press({}, Key::z);
            return field.text().startsWith(QLatin1Char('z'));
        })) << turn;
        panel->hide();
    }
}

TEST_F(WindowsOnX11, aPanelThatIsShownByAPressCarriesItsTimeAndTakesTheFocus) {
    const auto panel = makePanel();
    quint32 time = 0;
    const auto handler = HotKeys::installEventHandler([&](const HotKeys::Event& event) {
        time = event.time;
        Windows::showAndActivate(panel.get(), event.time);
        return HotKeys::noErr;
    });
    HotKeys::HotKeyRef hotKey = 0;
    ASSERT_EQ(HotKeys::registerEventHotKey(49, HotKeys::commandBit | HotKeys::shiftBit, {}, &hotKey), HotKeys::noErr);
    focusElsewhere();
    press({Key::control, Key::shift}, Key::space);
    EXPECT_TRUE(eventually([&] { return panel->isActiveWindow() && other.activeWindow() == idOf(*panel); }));
    EXPECT_NE(time, 0U);
    EXPECT_TRUE(eventually([&] { return userTimeOf(*panel) >= time; }));
    HotKeys::unregisterEventHotKey(hotKey);
    HotKeys::removeEventHandler(handler);
}

TEST_F(WindowsOnX11, holdingTheHotKeyDownLeavesTheFocusWithThePanelAndItsKeysToIt) {
    const auto panel = makePanel();
    QLineEdit field(panel.get());
    const auto handler = HotKeys::installEventHandler([&](const HotKeys::Event& event) {
        Windows::showAndActivate(panel.get(), event.time);
        field.setFocus();
        return HotKeys::noErr;
    });
    HotKeys::HotKeyRef hotKey = 0;
    ASSERT_EQ(HotKeys::registerEventHotKey(101, 0, {}, &hotKey), HotKeys::noErr);
    focusElsewhere();
    keys("keydown", {Key::f9});
    ASSERT_TRUE(eventually([&] { return field.hasFocus() && other.activeWindow() == idOf(*panel); }));
    int lost = 0;
    QObject::connect(qApp, &QGuiApplication::applicationStateChanged, panel.get(), [&lost] { ++lost; });
    // Typed before the hot key is let go.
    press({}, Key::z);
    EXPECT_TRUE(eventually([&] { return field.text() == QStringLiteral("z"); }));
    // Longer than the toolkit waits before it believes that a focus is lost.
    EXPECT_FALSE(QTest::qWaitFor([&lost] { return lost > 0; }, 600));
    keys("keyup", {Key::f9});
    EXPECT_FALSE(QTest::qWaitFor([&lost] { return lost > 0; }, 600));
    EXPECT_TRUE(panel->isActiveWindow());
    HotKeys::unregisterEventHotKey(hotKey);
    HotKeys::removeEventHandler(handler);
}

TEST_F(WindowsOnX11, holdingTheHotKeyDownOverOurOwnWindowKeepsTheProgramActive) {
    QWidget window;
    window.resize(300, 200);
    Windows::showAndActivate(&window, 0);
    ASSERT_TRUE(eventually([&] { return window.isActiveWindow() && other.activeWindow() == idOf(window); }));
    int presses = 0;
    const auto handler = HotKeys::installEventHandler([&](const HotKeys::Event&) {
        ++presses;
        return HotKeys::noErr;
    });
    HotKeys::HotKeyRef hotKey = 0;
    ASSERT_EQ(HotKeys::registerEventHotKey(101, 0, {}, &hotKey), HotKeys::noErr);
    int changes = 0;
    QObject::connect(qApp, &QGuiApplication::applicationStateChanged, &window, [&changes] { ++changes; });
    keys("keydown", {Key::f9});
    ASSERT_TRUE(eventually([&presses] { return presses == 1; }));
    EXPECT_FALSE(QTest::qWaitFor([&changes] { return changes > 0; }, 600));
    keys("keyup", {Key::f9});
    EXPECT_FALSE(QTest::qWaitFor([&changes] { return changes > 0; }, 600));
    EXPECT_TRUE(window.isActiveWindow());
    HotKeys::unregisterEventHotKey(hotKey);
    HotKeys::removeEventHandler(handler);
}

TEST_F(WindowsOnX11, aPanelStandsOnEveryWorkspaceAndOutOfTheTaskbarAfterEachShow) {
    const auto panel = makePanel();
    for (int turn = 0; turn < 3; ++turn) {
        Windows::showAndActivate(panel.get(), 0);
        EXPECT_TRUE(eventually([&] {
            return hasState(*panel, "_NET_WM_STATE_SKIP_TASKBAR") && hasState(*panel, "_NET_WM_STATE_SKIP_PAGER");
        })) << turn;
        EXPECT_TRUE(hasState(*panel, "_NET_WM_STATE_ABOVE"));
        EXPECT_TRUE(eventually([&] {
            return other.property(idOf(*panel), "_NET_WM_DESKTOP") == std::vector<quint32>{0xFFFFFFFF};
        })) << turn;
        panel->hide();
        EXPECT_TRUE(eventually([&] { return other.property(idOf(*panel), "_NET_WM_DESKTOP").empty(); })) << turn;
    }
}

TEST_F(WindowsOnX11, anOrdinaryWindowComesAndGoesInTheTaskbar) {
    QWidget window;
    window.resize(300, 200);
    Windows::showAndActivate(&window, 0);
    ASSERT_TRUE(eventually([&] { return window.isActiveWindow(); }));
    EXPECT_FALSE(hasState(window, "_NET_WM_STATE_SKIP_TASKBAR"));
    Windows::setSkipTaskbar(&window, true);
    EXPECT_TRUE(eventually([&] {
        return hasState(window, "_NET_WM_STATE_SKIP_TASKBAR") && hasState(window, "_NET_WM_STATE_SKIP_PAGER");
    }));
    Windows::setSkipTaskbar(&window, false);
    EXPECT_TRUE(eventually([&] {
        return !hasState(window, "_NET_WM_STATE_SKIP_TASKBAR") && !hasState(window, "_NET_WM_STATE_SKIP_PAGER");
    }));
}

TEST_F(WindowsOnX11, activateIgnoringOtherAppsBringsAShownWindowForward) {
    QWidget window;
    window.resize(300, 200);
    window.show();
    ASSERT_TRUE(eventually([&] { return window.isActiveWindow(); }));
    focusElsewhere();
    ASSERT_TRUE(eventually([&] { return !window.isActiveWindow(); }));
    Windows::activateIgnoringOtherApps(&window);
    EXPECT_TRUE(eventually([&] { return window.isActiveWindow(); }));
}

TEST_F(WindowsOnX11, compositingIsNoticedWhenItComesAndWhenItGoes) {
    EXPECT_FALSE(Windows::isComposited());
    QObject context;
    int changes = 0;
    Windows::observeComposited(&context, [&changes] { ++changes; });
    const xcb_window_t owner = other.makeWindow();
    other.own("_NET_WM_CM_S0", owner);
    EXPECT_TRUE(eventually([&] { return changes == 1; }));
    EXPECT_TRUE(Windows::isComposited());
    other.own("_NET_WM_CM_S0", XCB_WINDOW_NONE);
    EXPECT_TRUE(eventually([&] { return changes == 2; })) << "given up";
    EXPECT_FALSE(Windows::isComposited());
    other.own("_NET_WM_CM_S0", owner);
    EXPECT_TRUE(eventually([&] { return changes == 3; }));
    other.destroyWindow(owner);
    EXPECT_TRUE(eventually([&] { return changes == 4; })) << "its owner is gone";
    EXPECT_FALSE(Windows::isComposited());
}

TEST_F(WindowsOnX11, blurIsAskedForBehindARoundedRectangle) {
    const auto panel = makePanel();
    Windows::setBlurBehind(panel.get(), QRect(10, 20, 100, 80), 12);
    std::vector<quint32> values;
    ASSERT_TRUE(eventually([&] {
        values = other.property(idOf(*panel), "_KDE_NET_WM_BLUR_BEHIND_REGION");
        return !values.empty();
    }));
    ASSERT_EQ(values.size() % 4, 0U);
    QRegion region;
    for (size_t index = 0; index < values.size(); index += 4)
        region += QRect(static_cast<int>(values[index]), static_cast<int>(values[index + 1]),
                        static_cast<int>(values[index + 2]), static_cast<int>(values[index + 3]));
    EXPECT_EQ(region.boundingRect(), QRect(10, 20, 100, 80));
    EXPECT_FALSE(region.contains(QPoint(10, 20))) << "the corners stay out";
    EXPECT_TRUE(region.contains(QPoint(60, 20)));
    EXPECT_TRUE(region.contains(QPoint(60, 60)));
}

TEST_F(WindowsOnX11, aPanelShowsItsFirstPictureBeforeItHasDrawnItselfAndNeverAfter) {
    constexpr quint32 red = 0xFFFF0000;
    constexpr quint32 blue = 0xFF0000FF;
    const auto panel = makePanel();
    Painted content(panel.get(), QColor::fromRgb(blue));
    QImage picture(panel->size(), QImage::Format_ARGB32_Premultiplied);
    picture.fill(QColor::fromRgb(red));
    Windows::setFirstPicture(panel.get(), picture);
    const xcb_window_t window = idOf(*panel);
    Windows::showAndActivate(panel.get(), 0);
    // Nobody comes to the main loop meanwhile, so the panel can't draw itself.
    std::optional<quint32> shown;
    for (const QDeadlineTimer limit(5000); !shown && !limit.hasExpired();)
        shown = other.pixel(window, 150, 100);
    EXPECT_EQ(shown, red);
    EXPECT_TRUE(eventually([&] { return other.pixel(window, 150, 100) == blue; }));
    other.uncover(window);
    EXPECT_EQ(other.pixel(window, 150, 100), blue);
}

TEST_F(WindowsOnX11, aFirstPictureThatWasTakenBackIsNotShown) {
    const auto panel = makePanel();
    QImage picture(panel->size(), QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::red);
    Windows::setFirstPicture(panel.get(), picture);
    Windows::clearFirstPicture(panel.get());
    const xcb_window_t window = idOf(*panel);
    Windows::showAndActivate(panel.get(), 0);
    std::optional<quint32> shown;
    for (const QDeadlineTimer limit(5000); !shown && !limit.hasExpired();)
        shown = other.pixel(window, 150, 100);
    ASSERT_TRUE(shown);
    EXPECT_NE(*shown, 0xFFFF0000);
}

TEST_F(WindowsOnX11, theScreenIsTheFirstWhoseFrameContainsThePoint) {
    EXPECT_EQ(Windows::screenAt(QPoint(0, 0)), QGuiApplication::primaryScreen());
    EXPECT_EQ(Windows::screenAt(QPoint(-1, 0)), nullptr);
    const QSize size = QGuiApplication::primaryScreen()->size();
    EXPECT_EQ(Windows::screenAt(QPoint(size.width(), 0)), nullptr);
    EXPECT_NE(Windows::screenAt(QPoint(size.width() - 1, size.height() - 1)), nullptr);
}

TEST_F(WindowsOnX11, theMouseIsWhereItIs) {
    run(QStringLiteral("xdotool"), {QStringLiteral("mousemove"), QStringLiteral("123"), QStringLiteral("45")});
    EXPECT_EQ(Windows::mouseLocation(), QPoint(123, 45));
}

} // namespace
} // namespace Quillstacks
