#include "interface/Drawing.h"

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

namespace Quillstacks {
namespace {

template <typename Paint>
QImage painted(qreal ratio, Paint paint) {
    QImage image(QSize(120, 80) * ratio, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(QColor(30, 31, 36));
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    paint(painter);
    return image;
}

/// The largest difference of a channel anywhere.
int difference(const QImage& a, const QImage& b) {
    int largest = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x)
            largest = std::max(largest, std::abs(a.pixelColor(x, y).red() - b.pixelColor(x, y).red()));
    return largest;
}

TEST(Drawing, aFilledBoxIsTheToolkitsRoundedRectangle) {
    const QRectF box(10, 8, 90, 60);
    for (const qreal ratio : {1.0, 1.5, 2.0, 3.0}) {
        const QImage ours = painted(ratio, [&](QPainter& p) { fillRounded(p, box, 7, QColor(255, 255, 255, 60)); });
        const QImage plain = painted(ratio, [&](QPainter& p) {
            p.setPen(Qt::NoPen);
            p.setBrush(QColor(255, 255, 255, 60));
            p.drawRoundedRect(box, 7, 7);
        });
        EXPECT_LE(difference(ours, plain), 4) << ratio;
    }
}

TEST(Drawing, anEdgeIsTheToolkitsRoundedFrame) {
    const QRectF box(10, 8, 90, 60);
    for (const qreal ratio : {1.0, 1.5, 2.0, 3.0}) {
        const QImage ours = painted(ratio, [&](QPainter& p) { strokeRounded(p, box, 7, QColor(255, 255, 255, 60)); });
        const QImage plain = painted(ratio, [&](QPainter& p) {
            p.setPen(QPen(QColor(255, 255, 255, 60), 1));
            p.setBrush(Qt::NoBrush);
            p.drawRoundedRect(box.adjusted(.5, .5, -.5, -.5), 6.5, 6.5);
        });
        EXPECT_LE(difference(ours, plain), 12) << ratio;
    }
}

TEST(Drawing, mixingWithAClearColorKeepsTheHue) {
    const QColor half = mix(QColor(0, 0, 0, 0), QColor(200, 100, 50, 200), 0.5);
    EXPECT_EQ(half.red(), 200);
    EXPECT_EQ(half.alpha(), 100);
    EXPECT_EQ(mix(Qt::red, Qt::blue, 0), QColor(Qt::red));
    EXPECT_EQ(mix(Qt::red, Qt::blue, 1), QColor(Qt::blue));
}

} // namespace
} // namespace Quillstacks
