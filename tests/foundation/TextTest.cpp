#include "foundation/Text.h"

#include <gtest/gtest.h>
#include <unicode/uchar.h>

namespace Quillstacks {
namespace {

QString lower(const char16_t* text) {
    return Text::lowercased(QStringView(text));
}

TEST(Text, trimsExactlySpacesOfZsAndLineEnds) {
    for (uint unit = 0; unit <= 0xFFFF; ++unit) {
        const QChar character(static_cast<char16_t>(unit));
        const bool expected = u_charType(static_cast<UChar32>(unit)) == U_SPACE_SEPARATOR ||
                              (unit >= 9 && unit <= 13) || unit == 0x85 || unit == 0x2028 || unit == 0x2029;
        const QString text = character + QStringLiteral("a") + character;
        ASSERT_EQ(Text::trimmed(text) == QStringLiteral("a"), expected) << std::hex << unit;
        ASSERT_EQ(Text::isBlank(QString(character)), expected) << std::hex << unit;
    }
}

TEST(Text, trimmingKeepsSpacesWithinAndInvisiblesThatAreNoSpaces) {
    EXPECT_EQ(Text::trimmed(u" \r\n\ta b\u00A0c\u3000\u2029"), QStringLiteral("a b\u00A0c"));
    EXPECT_EQ(Text::trimmed(u"\u200Ba\uFEFF"), QStringLiteral("\u200Ba\uFEFF"));
    EXPECT_EQ(Text::trimmed(u""), QString());
    EXPECT_EQ(Text::trimmed(u" \n "), QString());
    EXPECT_EQ(Text::trimmed(u"a"), QStringLiteral("a"));
}

TEST(Text, anEmptyTextIsBlank) {
    EXPECT_TRUE(Text::isBlank(u""));
    EXPECT_TRUE(Text::isBlank(u" \u2003\n"));
    EXPECT_FALSE(Text::isBlank(u" . "));
}

TEST(Text, lowerCasingIsFull) {
    EXPECT_EQ(lower(u"HELLO Wörld ÄÖ"), QStringLiteral("hello wörld äö"));
    EXPECT_EQ(lower(u""), QString());
    EXPECT_EQ(lower(u"\u0130stanbul"), QStringLiteral("i\u0307stanbul")) << "one unit becomes two";
    EXPECT_EQ(lower(u"\u212A\u212B\u2126"), QStringLiteral("k\u00E5\u03C9"));
    EXPECT_EQ(lower(u"\u1E9E"), QStringLiteral("\u00DF"));
    EXPECT_EQ(lower(u"\u10A0\u1C90"), QStringLiteral("\u2D00\u10D0")) << "Georgian";
    EXPECT_EQ(lower(u"\U00010400"), QStringLiteral("\U00010428")) << "Deseret";
}

TEST(Text, lowerCasingIsOfTheRootLocaleAndKeepsAsciiI) {
    EXPECT_EQ(lower(u"TITLE"), QStringLiteral("title"));
}

TEST(Text, lowerCasingKnowsTheFinalSigma) {
    EXPECT_EQ(lower(u"\u039F\u0394\u039F\u03A3"), QStringLiteral("\u03BF\u03B4\u03BF\u03C2"));
    EXPECT_EQ(lower(u"\u03A3"), QStringLiteral("\u03C3")) << "alone it is not final";
    EXPECT_EQ(lower(u"\u0391\u03A3\u0391"), QStringLiteral("\u03B1\u03C3\u03B1"));
}

TEST(Text, lowerCasingGrowsAsFarAsNeeded) {
    EXPECT_EQ(Text::lowercased(QString(1000, QChar(0x130))), QStringLiteral("i\u0307").repeated(1000));
}

TEST(Text, lowerCasingKeepsWhatIsNoCharacter) {
    const QString broken = QString(QChar(0xD801)) + QLatin1Char('A') + QChar(0xDC00) + QChar(0xFFFF) + QChar(u'\0');
    EXPECT_EQ(Text::lowercased(broken),
              QString(QChar(0xD801)) + QLatin1Char('a') + QChar(0xDC00) + QChar(0xFFFF) + QChar(u'\0'));
}

TEST(Text, comparesDigitsByValue) {
    EXPECT_LT(Text::localizedStandardCompare(u"Item 9", u"Item 10"), 0);
    EXPECT_GT(Text::localizedStandardCompare(u"Item 100", u"Item 20"), 0);
    EXPECT_LT(Text::localizedStandardCompare(u"a2b", u"a10a"), 0);
}

TEST(Text, comparesAsAPersonWould) {
    EXPECT_LT(Text::localizedStandardCompare(u"a", u"B"), 0) << "no order of character codes";
    EXPECT_LT(Text::localizedStandardCompare(u"\u00E4", u"z"), 0) << "letters with marks stand by their letter";
    EXPECT_LT(Text::localizedStandardCompare(u"a", u"A"), 0);
    EXPECT_LT(Text::localizedStandardCompare(u"", u"a"), 0);
    EXPECT_EQ(Text::localizedStandardCompare(u"x", u"x"), 0);
}

TEST(Text, aNullTextIsAnEmptyOne) {
    EXPECT_EQ(Text::lowercased(QStringView()), QString());
    EXPECT_EQ(Text::trimmed(QStringView()), QString());
    EXPECT_LT(Text::localizedStandardCompare(QStringView(), u"a"), 0);
    EXPECT_EQ(Text::localizedStandardCompare(QStringView(), u""), 0);
}

TEST(Text, whatCollatesAsEqualStillHasAnOrder) {
    const int order = Text::localizedStandardCompare(u"Item 1", u"Item 01");
    EXPECT_NE(order, 0);
    EXPECT_EQ(order > 0, Text::localizedStandardCompare(u"Item 01", u"Item 1") < 0);
}

} // namespace
} // namespace Quillstacks
