#include "variables/VariableTokenAttachmentCell.h"

#include "interface/TextStyle.h"
#include "TokenFixture.h"

#include <QFontMetricsF>
#include <QPainter>

#include <cmath>

namespace Quillstacks {
namespace {

class TokenCell : public TokenEditor {
protected:
    /// A token on a black ground, eight times as large.
    [[nodiscard]] static QImage picture(const VariableTokenAttachmentCell& cell, bool isSelected = false) {
        QImage image((cell.size() * scale).toSize(), QImage::Format_ARGB32);
        image.fill(Qt::black);
        QPainter painter(&image);
        painter.scale(scale, scale);
        cell.draw(painter, QRectF(QPointF(), cell.size()), isSelected);
        return image;
    }
    static QColor at(const QImage& image, qreal x, qreal y) {
        return image.pixelColor(static_cast<int>(x * scale), static_cast<int>(y * scale));
    }
    static QColor onBlack(qreal opacity) {
        const QColor accent = Theme::shared().color(ColorRole::accent);
        return QColor::fromRgbF(static_cast<float>(accent.redF() * opacity),
                                static_cast<float>(accent.greenF() * opacity),
                                static_cast<float>(accent.blueF() * opacity));
    }
    static void expectNear(const QColor& a, const QColor& b) {
        EXPECT_NEAR(a.red(), b.red(), 2);
        EXPECT_NEAR(a.green(), b.green(), 2);
        EXPECT_NEAR(a.blue(), b.blue(), 2);
    }
    static constexpr int scale = 8;
    const VariableTokenAttachmentCell cell{QStringLiteral("topic")};
};

TEST_F(TokenCell, isAsWideAsItsNameRoundedUpAndTwentyEightMore) {
    const qreal name = QFontMetricsF(absoluteFont(12, QFont::Medium)).horizontalAdvance(cell.name);
    EXPECT_EQ(cell.size(), QSizeF(std::ceil(name) + 20 + 8, 20));
}

TEST_F(TokenCell, thePillIsInsetByTwoAtTopAndBottom) {
    const QImage image = picture(cell);
    const qreal x = cell.size().width() - 9;
    expectNear(at(image, x, 1.8), Qt::black);
    EXPECT_NE(at(image, x, 2.3), QColor(Qt::black));
    EXPECT_NE(at(image, x, 17.7), QColor(Qt::black));
    expectNear(at(image, x, 18.2), Qt::black);
    expectNear(at(image, 0.5, 2.5), Qt::black); // the corner of the pill
}

TEST_F(TokenCell, fillAndEdgeAreWashesOfTheAccent) {
    const qreal x = cell.size().width() - 5;
    expectNear(at(picture(cell), x, 10), onBlack(0.12));
    expectNear(at(picture(cell), cell.size().width() - 9, 2.5), onBlack(0.12 + 0.18 - 0.12 * 0.18));
    expectNear(at(picture(cell, true), x, 10), onBlack(0.30));
}

TEST_F(TokenCell, theDotIsSixWideEightFromTheLeftAndInTheMiddle) {
    const QImage image = picture(cell);
    expectNear(at(image, 8.2, 10), onBlack(1));
    expectNear(at(image, 13.8, 10), onBlack(1));
    expectNear(at(image, 11, 7.2), onBlack(1));
    expectNear(at(image, 11, 12.8), onBlack(1));
    expectNear(at(image, 7.6, 10), onBlack(0.12));
    expectNear(at(image, 14.4, 10), onBlack(0.12));
    expectNear(at(image, 11, 6.6), onBlack(0.12));
}

TEST_F(TokenCell, theNameBeginsSixRightOfTheDot) {
    const QImage image = picture({QStringLiteral("HHH")});
    const QColor label = Theme::shared().color(ColorRole::text);
    int first = image.width();
    int top = image.height();
    int bottom = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 15 * scale; x < image.width(); ++x)
            if (std::abs(image.pixelColor(x, y).green() - label.green()) < 20) {
                first = std::min(first, x);
                top = std::min(top, y);
                bottom = std::max(bottom, y);
            }
    EXPECT_GE(first / qreal(scale), 20);
    EXPECT_LT(first / qreal(scale), 22.5); // the letter's own bearing
    const QFontMetricsF metrics(absoluteFont(12, QFont::Medium));
    EXPECT_NEAR((bottom + 1) / qreal(scale), 10 - 7 + metrics.ascent(), 0.5);
    EXPECT_NEAR(top / qreal(scale), 10 - 7 + metrics.ascent() - metrics.capHeight(), 0.6);
}

TEST_F(TokenCell, standsInTheMiddleOfItsLineOfText) {
    view->setLineFormat(textFont(TextStyle::monoBody), 24);
    open(QStringLiteral("ab {{topic}} cd"), 0);
    const QImage image = view->viewport()->grab().toImage();
    const qreal ratio = image.devicePixelRatio();
    const QColor accent = Theme::shared().color(ColorRole::accent);
    QTextCursor cursor(view->document());
    cursor.setPosition(3);
    const int dot = view->cursorRect(cursor).left() + 11;
    int top = -1;
    int bottom = -1;
    for (int y = 0; y < 40; ++y) {
        if (image.pixelColor(static_cast<int>(dot * ratio), static_cast<int>(y * ratio)) != accent)
            continue;
        top = top < 0 ? y : top;
        bottom = y;
    }
    ASSERT_GE(top, 0) << "no dot";
    const qreal baseLine = 8 + 24 * 0.8;
    const qreal middle = baseLine - QFontMetricsF(textFont(TextStyle::monoBody)).capHeight() / 2;
    EXPECT_NEAR((top + bottom + 1) / 2.0, middle, 1);
}

TEST_F(TokenCell, aSelectedTokenHasNoWashOverItAndTheTextBehindItShows) {
    view->setLineFormat(textFont(TextStyle::monoBody), 24);
    open(QStringLiteral("ab {{topic}} cd"), 0);
    select(0, 7);
    view->clearFocus();
    const QImage image = view->viewport()->grab().toImage().convertToFormat(QImage::Format_ARGB32);
    QTextCursor cursor(view->document());
    cursor.setPosition(3);
    const QRect place = view->cursorRect(cursor);
    const QColor accent = Theme::shared().color(ColorRole::accent);
    const QColor label = Theme::shared().color(ColorRole::text);
    int dots = 0;
    int letters = 0;
    for (int y = place.top(); y < place.bottom(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            dots += image.pixelColor(x, y) == accent && x > place.left() && x < place.left() + 18;
            letters += x > place.left() + 75 && std::abs(image.pixelColor(x, y).green() - label.green()) < 40;
        }
    }
    EXPECT_GT(dots, 12);
    EXPECT_GT(letters, 5);
}

} // namespace
} // namespace Quillstacks
