#include "interface/RowText.h"

#include "interface/TextBlock.h"
#include "interface/TextStyle.h"

#include <QElapsedTimer>
#include <QFontMetricsF>
#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

namespace Quillstacks {
namespace {

RowText rowText() {
    return RowText(textFont(TextStyle::subheadline));
}

TEST(RowText, aTextThatFitsIsOneLine) {
    EXPECT_EQ(rowText().lineCount(QStringLiteral("A short body"), 400), 1);
    EXPECT_EQ(rowText().lineCount({}, 400), 1);
}

TEST(RowText, aTextThatDoesNotFitIsTwo) {
    EXPECT_EQ(rowText().lineCount(QString(200, QLatin1Char('m')), 400), 2);
}

TEST(RowText, aLineEndIsShownAsASpace) {
    for (const char16_t* text : {u"a\nb", u"a\r\nb", u"a\rb", u"a\n\n\n  b", u"\n", u"a\u2028b"})
        EXPECT_EQ(rowText().lineCount(QString::fromUtf16(text), 400), 1);
    const QString paragraphs = QStringLiteral("One line.\n\nAnother line, and ") + QString(200, QLatin1Char('m'));
    EXPECT_EQ(rowText().lineCount(paragraphs, 400), 2);
}

TEST(RowText, theCountAgreesWithALayout) {
    const RowText rows = rowText();
    const QString sentence =
        QStringLiteral("Review the following {{language}} change — naïve café, 日本語 – as a careful engineer.");
    for (int length = 1; length <= sentence.size(); ++length) {
        const QString text = sentence.left(length);
        const qreal natural = TextBlock(text, {rows.font(), 18, 0, Qt::AlignLeft}, 1e6).naturalWidth();
        // Kerning makes the layout a little narrower than the sum, so exactly at the edge either may hold.
        EXPECT_EQ(rows.lineCount(text, natural + 4), 1) << length;
        EXPECT_EQ(rows.lineCount(text, natural - 4), 2) << length;
    }
}

TEST(RowText, theCountAgreesWithALayoutInAnyScript) {
    const RowText rows = rowText();
    for (const char16_t* text :
         {u"Проверь это изменение как внимательный инженер, строка за строкой.", u"Ελέγξτε αυτή την αλλαγή προσεκτικά.",
          u"この変更を注意深いエンジニアとして一行ずつ確認してください。", u"请逐行检查此更改。",
          u"이 변경 사항을 한 줄씩 검토하세요.",
          u"a\u0301e\u0301i\u0301o\u0301u\u0301 with marks\u200B\u200D\u2060 and nothing", u"𝐁𝐨𝐥𝐝 😀 😀 😀 letters"}) {
        const QString shown = QString::fromUtf16(text);
        const qreal natural = TextBlock(shown, {rows.font(), 18, 0, Qt::AlignLeft}, 1e6).naturalWidth();
        EXPECT_EQ(rows.lineCount(shown, natural * 1.03 + 4), 1) << qPrintable(shown);
        EXPECT_EQ(rows.lineCount(shown, natural - 4), 2) << qPrintable(shown);
    }
}

TEST(RowText, whatHasNoWidthTakesNoSecondLine) {
    EXPECT_EQ(rowText().lineCount(QString(1000, QLatin1Char(' ')) + QLatin1Char('a'), 400), 1);
    EXPECT_EQ(rowText().lineCount(QString(1000, QChar(0x200B)) + QLatin1Char('a'), 400), 1);
    EXPECT_EQ(rowText().lineCount(QString(1000, QChar(0x0301)), 400), 1);
}

TEST(RowText, halfASurrogatePairIsMeasuredToo) {
    EXPECT_EQ(rowText().lineCount(QString(QChar(0xD83D)), 400), 1);
    EXPECT_EQ(rowText().lineCount(QStringLiteral("a") + QChar(0xDE00) + QStringLiteral("b"), 400), 1);
}

TEST(RowText, measuringIsQuickInAnyScript) {
    const RowText rows = rowText();
    const QString cyrillic = QStringLiteral("Проверьизменение").repeated(20);
    QElapsedTimer timer;
    timer.start();
    int lines = 0;
    for (int i = 0; i < 2000; ++i)
        lines += rows.lineCount(cyrillic, 600);
    EXPECT_EQ(lines, 4000);
    // Shaping each takes many times as long; this leaves room for the slowest machine.
    EXPECT_LT(timer.elapsed(), 100);
}

TEST(RowText, onlyTheBeginningOfAHugeTextIsLookedAt) {
    QString huge = QStringLiteral("word ").repeated(2'000'000);
    QImage image(400, 40, QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&image);
    const RowText rows = rowText();
    QElapsedTimer timer;
    timer.start();
    EXPECT_EQ(rows.lineCount(huge, 400), 2);
    rows.layOut(huge, image.width(), 2, 18)->draw(painter, {});
    // A layout of the whole takes seconds; this leaves room for the slowest machine.
    EXPECT_LT(timer.elapsed(), 250);
}

TEST(RowText, theStartOfALineIsAllOfAnOrdinaryTextAndTheBeginningOfAHugeOne) {
    const QString ordinary(4000, QLatin1Char('n'));
    EXPECT_EQ(startOfLine(ordinary), ordinary);
    EXPECT_EQ(startOfLine(ordinary + QStringLiteral("more")), ordinary + QChar(0x2026));
    const QString pair = QStringLiteral("\U0001F600");
    EXPECT_EQ(startOfLine(QString(3999, QLatin1Char('n')) + pair), QString(3999, QLatin1Char('n')) + QChar(0x2026))
        << "no half of a pair";
}

TEST(RowText, drawsInTheLinesItIsGivenOnly) {
    QImage image(200, 60, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter painter(&image);
    rowText().layOut(QStringLiteral("mmmm ").repeated(50), image.width(), 1, 20)->draw(painter, {});
    painter.end();
    bool below = false;
    bool within = false;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            (y < 20 ? within : below) |= image.pixelColor(x, y) != QColor(Qt::white);
    EXPECT_TRUE(within);
    EXPECT_FALSE(below);
}

} // namespace
} // namespace Quillstacks
