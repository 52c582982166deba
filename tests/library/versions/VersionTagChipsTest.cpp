#include "VersionTagChips.h"

#include "LibraryFixture.h"

#include <QImage>

using namespace Quillstacks;

namespace {

class VersionTagChipsTest : public LibraryFixture {
protected:
    static VersionTagChips::Tag tag(const QString& name) { return {name, QColor(QStringLiteral("#4D96FF"))}; }
    void show(const QList<VersionTagChips::Tag>& tags, int width) {
        chips.setTags(tags);
        chips.resize(width, 1);
        chips.resize(width, chips.sizeHint().height());
    }
    QImage picture() {
        QImage image(chips.size(), QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        chips.render(&image, {}, {}, QWidget::DrawChildren);
        return image;
    }
    /// Whether a row of the picture, but for the corners, is of one colour from edge to edge of what is painted.
    static bool isPlain(const QImage& image, int y) {
        const QRgb ground = image.pixel(8, y);
        for (int x = 8; x < image.width() && qAlpha(image.pixel(x + 7, y)) > 0; ++x)
            if (image.pixel(x, y) != ground)
                return false;
        return true;
    }

    VersionTagChips chips;
};

} // namespace

TEST_F(VersionTagChipsTest, aLineEndInANameIsASpace) {
    show({tag(QStringLiteral("HHH\nHHH"))}, 200);
    const QImage image = picture();
    // Two lines would reach up to the chip's edge.
    EXPECT_TRUE(isPlain(image, 2));
    EXPECT_TRUE(isPlain(image, 3));
    EXPECT_FALSE(isPlain(image, image.height() / 2)) << "there is a text";
}

TEST_F(VersionTagChipsTest, chipsThatFindNoRoomBeginAnotherRow) {
    show({tag(QStringLiteral("one"))}, 60);
    const int row = chips.height();
    show({tag(QStringLiteral("one")), tag(QStringLiteral("two"))}, 60);
    EXPECT_EQ(chips.height(), 2 * row + 6);
    show({tag(QStringLiteral("one")), tag(QStringLiteral("two"))}, 400);
    EXPECT_EQ(chips.height(), row);
}

TEST_F(VersionTagChipsTest, aNameThatIsTooLongStaysWithinTheWidth) {
    show({tag(QStringLiteral("W").repeated(200))}, 120);
    const QImage image = picture();
    const int middle = image.height() / 2;
    EXPECT_GT(qAlpha(image.pixel(119, middle)), 0) << "the edge";
    for (int x = 113; x < 119; ++x)
        EXPECT_EQ(image.pixel(x, middle), image.pixel(118, middle)) << x;
}
