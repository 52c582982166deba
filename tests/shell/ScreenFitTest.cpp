#include "shell/ScreenFit.h"

#include <QScreen>
#include <QWidget>

#include <gtest/gtest.h>

namespace Quillstacks {
namespace {

TEST(ScreenFit, aScreenWithRoomLeavesTheSmallestSizeAlone) {
    QWidget window;
    window.resize(300, 250);
    ScreenFit fit(&window, QSize(200, 100));
    fit.fit();
    EXPECT_EQ(window.minimumSize(), QSize(200, 100));
    EXPECT_EQ(window.size(), QSize(300, 250));
}

TEST(ScreenFit, onASmallerScreenTheWindowTakesWhatThereIs) {
    QWidget window;
    const QSize available = window.screen()->availableSize();
    window.resize(available.width() + 500, 250);
    ScreenFit fit(&window, QSize(available.width() + 400, 200));
    fit.fit();
    EXPECT_EQ(window.minimumSize(), QSize(available.width(), 200));
    EXPECT_EQ(window.size(), QSize(available.width(), 250));
}

TEST(ScreenFit, aScreenWhoseRoomShrinksTakesTheWindowWithIt) {
    QWidget window;
    const QSize available = window.screen()->availableSize();
    ScreenFit fit(&window, QSize(200, 100));
    fit.fit();
    window.show();
    // As after a change of the screen's mode: the window is larger than what there is now.
    window.resize(available + QSize(100, 50));
    Q_EMIT window.screen()->availableGeometryChanged(window.screen()->availableGeometry());
    EXPECT_EQ(window.frameGeometry().size(), available);
}

} // namespace
} // namespace Quillstacks
