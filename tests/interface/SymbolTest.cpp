#include "interface/Symbol.h"

#include <QDir>
#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

namespace Quillstacks {
namespace {

int inked(const QImage& image, const QColor& color) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            count += image.pixelColor(x, y) == color ? 1 : 0;
    return count;
}

TEST(Symbol, everySymbolOfTheProgramIsDrawn) {
    const QStringList files = QDir(QStringLiteral(":/symbols")).entryList();
    EXPECT_EQ(files.size(), 56);
    for (const QString& file : files) {
        const QString name = file.chopped(4);
        EXPECT_TRUE(Symbol::exists(name));
        const QImage image = Symbol::pixmap(name, 48, Qt::red, 1).toImage();
        EXPECT_GT(inked(image, Qt::red), 20) << name.toStdString();
    }
}

TEST(Symbol, theColorIsTheOneAskedFor) {
    const QImage image = Symbol::pixmap(QStringLiteral("circle.fill"), 16, QColor(0, 200, 80), 1).toImage();
    EXPECT_EQ(image.pixelColor(8, 8), QColor(0, 200, 80));
    EXPECT_EQ(image.pixelColor(0, 0).alpha(), 0);
}

TEST(Symbol, anotherRatioHasMorePixels) {
    const QPixmap pixmap = Symbol::pixmap(QStringLiteral("star"), 16, Qt::white, 2.5);
    EXPECT_EQ(pixmap.size(), QSize(40, 40));
    EXPECT_EQ(pixmap.devicePixelRatio(), 2.5);
}

TEST(Symbol, aThinnerLineHasLessInk) {
    const auto ink = [](qreal line) {
        return inked(Symbol::pixmap(QStringLiteral("xmark.circle"), 96, Qt::red, 1, line).toImage(), Qt::red);
    };
    EXPECT_LT(ink(1.25), ink(0));
}

TEST(Symbol, anUnknownNamePaintsNothing) {
    EXPECT_FALSE(Symbol::exists(QStringLiteral("no.such")));
    QImage image(16, 16, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::blue);
    QPainter painter(&image);
    Symbol::paint(painter, image.rect(), QStringLiteral("no.such"), Qt::red);
    painter.end();
    EXPECT_EQ(inked(image, Qt::blue), 256);
}

} // namespace
} // namespace Quillstacks
