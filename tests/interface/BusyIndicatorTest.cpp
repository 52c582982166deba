#include "interface/BusyIndicator.h"

#include "interface/Theme.h"
#include "platform/FakeDesktop.h"
#include "support/TestPreferences.h"

#include <QAccessible>
#include <QImage>

#include <gtest/gtest.h>

namespace Quillstacks {
namespace {

class Busy : public testing::Test {
protected:
    void SetUp() override { Theme::shared().refresh(); }
    FakeDesktop& desktop = FakeDesktop::fresh();
    TestPreferences preferences;
    /// What it looks like, on nothing.
    QImage picture() {
        QImage image(indicator.sizeHint(), QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        indicator.resize(image.size());
        indicator.render(&image, {}, {}, QWidget::RenderFlags());
        return image;
    }
    /// The number of points that are less transparent than this.
    int paintedOver(int alpha) {
        const QImage image = picture();
        int points = 0;
        for (int x = 0; x < image.width(); ++x)
            for (int y = 0; y < image.height(); ++y)
                points += image.pixelColor(x, y).alpha() > alpha ? 1 : 0;
        return points;
    }

    BusyIndicator indicator{QStringLiteral("Reading")};
};

TEST_F(Busy, itTurnsWhileItShows) {
    EXPECT_FALSE(indicator.isTurning());
    indicator.show();
    EXPECT_TRUE(indicator.isTurning());
    indicator.hide();
    EXPECT_FALSE(indicator.isTurning());
}

TEST_F(Busy, withReducedMotionItStandsStillAndIsThere) {
    desktop.setReducedMotion(true);
    indicator.show();
    EXPECT_FALSE(indicator.isTurning());
    EXPECT_GT(paintedOver(60), 100);
    EXPECT_GT(paintedOver(200), 10) << "its head is no mere shade";
    desktop.setReducedMotion(false);
    EXPECT_TRUE(indicator.isTurning()) << "it follows the desktop";
}

TEST_F(Busy, itIsGreyAndFadesBehindItsHead) {
    const QImage image = picture();
    const QColor head = image.pixelColor(image.width() / 2 - 1, 3);
    const QColor expected = Theme::shared().color(ColorRole::text2);
    EXPECT_LE(std::abs(head.red() - expected.red()) + std::abs(head.blue() - expected.blue()), 12)
        << head.name().toStdString();
    const int left = image.pixelColor(3, image.height() / 2).alpha();
    const int bottom = image.pixelColor(image.width() / 2, image.height() - 4).alpha();
    const int right = image.pixelColor(image.width() - 4, image.height() / 2).alpha();
    EXPECT_GT(head.alpha(), left);
    EXPECT_GT(left, bottom);
    EXPECT_GT(bottom, right);
}

TEST_F(Busy, disabledItIsDimmedByHalf) {
    EXPECT_GT(paintedOver(150), 0);
    indicator.setEnabled(false);
    EXPECT_EQ(paintedOver(150), 0);
    EXPECT_GT(paintedOver(60), 0);
}

TEST_F(Busy, assistiveToolsHearWhatGoesOn) {
    auto* interface = QAccessible::queryAccessibleInterface(&indicator);
    ASSERT_TRUE(interface);
    EXPECT_EQ(interface->role(), QAccessible::ProgressBar);
    EXPECT_EQ(interface->text(QAccessible::Name), QStringLiteral("Reading"));
}

} // namespace
} // namespace Quillstacks
