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

} // namespace
} // namespace Quillstacks
