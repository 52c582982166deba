#include "ProgressView.h"

#include "foundation/ManualClock.h"
#include "interface/ProgressBar.h"
#include "interface/Sheet.h"
#include "interface/Theme.h"

#include <QApplication>
#include <QImage>

#include <gtest/gtest.h>

namespace Quillstacks {
namespace {

using namespace std::chrono_literals;

class ProgressViewTest : public testing::Test {
protected:
    ProgressViewTest() {
        Theme::shared().refresh();
        window.resize(600, 400);
        host = new QWidget(&window);
        QCoreApplication::processEvents(); // the first screen of a process brings the palette
        bare = picture();
    }
    /// Nothing moves in a window that is not shown: what is seen is seen at once.
    QImage picture() { return window.grab().toImage(); }

    ManualClock clock;
    QWidget window;
    QWidget* host = nullptr;
    QImage bare;
};

TEST_F(ProgressViewTest, itIsSeenAfterHalfASecondAndAllBeneathIsInertFromTheFirstMoment) {
    const auto progress = ProgressView::present(host, QStringLiteral("Importing..."));
    EXPECT_TRUE(Sheet::covers(host));
    clock.advance(499ms);
    EXPECT_EQ(picture(), bare);
    EXPECT_TRUE(Sheet::covers(host));
    clock.advance(1ms);
    EXPECT_NE(picture(), bare);
    EXPECT_EQ(Sheet::of(progress)->accessibleName(), QStringLiteral("Importing..."));
    progress->dismiss();
    EXPECT_FALSE(Sheet::covers(host));
}

TEST_F(ProgressViewTest, ofWorkThatIsOverSoonerNothingIsEverSeen) {
    const auto progress = ProgressView::present(host, QStringLiteral("Exporting..."));
    clock.advance(400ms);
    progress->dismiss();
    EXPECT_FALSE(Sheet::covers(host));
    clock.advance(1s);
    EXPECT_EQ(picture(), bare);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(progress.isNull());
}

TEST_F(ProgressViewTest, theBarFollows) {
    const auto progress = ProgressView::present(host, QStringLiteral("Importing..."));
    const auto* bar = progress->findChild<ProgressBar*>();
    ASSERT_NE(bar, nullptr);
    EXPECT_EQ(bar->value(), bar->minimum());
    progress->setFraction(0.5);
    EXPECT_EQ(bar->value(), (bar->minimum() + bar->maximum()) / 2);
    progress->setFraction(1);
    EXPECT_EQ(bar->value(), bar->maximum());
}

} // namespace
} // namespace Quillstacks
