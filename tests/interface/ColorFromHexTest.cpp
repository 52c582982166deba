#include "interface/ColorFromHex.h"

#include <gtest/gtest.h>

namespace Quillstacks {
namespace {

QColor color(const char16_t* text) {
    return colorFromHex(QString::fromUtf16(text));
}

TEST(ColorFromHex, sixDigitsAreRedGreenAndBlue) {
    EXPECT_EQ(color(u"#4D96FF"), QColor(0x4D, 0x96, 0xFF));
    EXPECT_EQ(color(u"4d96ff"), QColor(0x4D, 0x96, 0xFF));
    EXPECT_EQ(color(u"#4D96FF").alpha(), 255);
}

TEST(ColorFromHex, samplesOfEachKind) {
    EXPECT_EQ(color(u"#7C5CFC"), QColor(0x7C, 0x5C, 0xFC));
    EXPECT_EQ(color(u"7C5CFC"), QColor(0x7C, 0x5C, 0xFC));
    EXPECT_EQ(color(u"F0A"), QColor(0xFF, 0x00, 0xAA));
    EXPECT_EQ(color(u"xyz"), QColor(Qt::black));
    EXPECT_EQ(color(u"12345678"), QColor(Qt::black));
}

TEST(ColorFromHex, threeDigitsCountOfFifteen) {
    EXPECT_EQ(color(u"#F80"), QColor(0xFF, 0x88, 0x00));
    EXPECT_EQ(color(u"123"), QColor(0x11, 0x22, 0x33));
}

TEST(ColorFromHex, eightDigitsWithAlphaAreBlackNotTranslucent) {
    EXPECT_EQ(color(u"#804D96FF"), QColor(Qt::black));
    EXPECT_EQ(color(u"#804D96FF").alpha(), 255);
}

TEST(ColorFromHex, anyOtherLengthIsBlack) {
    for (const char16_t* text : {u"F", u"FF", u"FFFF", u"FFFFF", u"FFFFFFF", u"FFFFFFFFFFFFFFFF"})
        EXPECT_EQ(color(text), QColor(Qt::black)) << QString::fromUtf16(text).toStdString();
}

TEST(ColorFromHex, nothingAndNothingButSignsAreBlack) {
    for (const char16_t* text : {u"", u"#", u" \t\n", u"#-+!"})
        EXPECT_EQ(color(text), QColor(Qt::black));
}

TEST(ColorFromHex, whatIsNoLetterOrDigitIsTrimmedFromBothEnds) {
    EXPECT_EQ(color(u"  ##FF0000;\n"), QColor(Qt::red));
    EXPECT_EQ(color(u"+FF0000"), QColor(Qt::red));
    EXPECT_EQ(color(u"-FF0000"), QColor(Qt::red));
    EXPECT_EQ(color(u"\U0001F3A8 FF0000"), QColor(Qt::red)); // a palette, outside the basic plane
}

TEST(ColorFromHex, aSignWithinIsNotTrimmed) {
    EXPECT_EQ(color(u"FF 000"), QColor(Qt::black));
    EXPECT_EQ(color(u"F+0000"), QColor(Qt::black));
}

TEST(ColorFromHex, lettersThatAreNoHexadecimalDigitsAreBlack) {
    EXPECT_EQ(color(u"GG0000"), QColor(Qt::black));
    EXPECT_EQ(color(u"0xFF00"), QColor(Qt::black));
    EXPECT_EQ(color(u"éFF0000"), QColor(Qt::black)); // a letter is not trimmed
}

TEST(ColorFromHex, digitsOfOtherScriptsAreNotTrimmedAndNotRead) {
    EXPECT_EQ(color(u"\u0661\u0662\u0663"), QColor(Qt::black));
    EXPECT_EQ(color(u"\uFF21\uFF21\uFF21"), QColor(Qt::black)); // full width A
}

TEST(ColorFromHex, moreThanSixtyFourBitsAreBlack) {
    EXPECT_EQ(color(u"1FFFFFFFFFFFFFFFFF"), QColor(Qt::black));
}

TEST(ColorFromHex, aLoneSurrogateIsTrimmed) {
    EXPECT_EQ(colorFromHex(QString(QChar(0xD83D)) + QStringLiteral("00FF00") + QChar(0xDC00)), QColor(Qt::green));
}

} // namespace
} // namespace Quillstacks
