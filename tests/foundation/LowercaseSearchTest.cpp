#include "foundation/LowercaseSearch.h"
#include "foundation/Text.h"

#include <gtest/gtest.h>
#include <unicode/uchar.h>

#include <random>

namespace Quillstacks {
namespace {

bool finds(QStringView term, QStringView text) {
    return LowercaseSearch(term).isIn(text);
}

/// What the search stands for, done the long way.
bool reference(QStringView term, QStringView text) {
    return Text::lowercased(text).contains(Text::lowercased(term));
}

TEST(LowercaseSearch, ignoresCaseOnBothSides) {
    EXPECT_TRUE(finds(u"world", u"Hello, WORLD!"));
    EXPECT_TRUE(finds(u"WORLD", u"hello, world!"));
    EXPECT_FALSE(finds(u"worlds", u"Hello, WORLD!"));
}

TEST(LowercaseSearch, anEmptyTermStandsInEveryText) {
    EXPECT_TRUE(finds(u"", u""));
    EXPECT_TRUE(finds(u"", u"a"));
    EXPECT_FALSE(finds(u"a", u""));
}

TEST(LowercaseSearch, punctuationIsNotFoldedLikeLetters) {
    EXPECT_FALSE(finds(u"[", u"{"));
    EXPECT_FALSE(finds(u"@", u"`"));
    EXPECT_TRUE(finds(u"{a}", u"x{A}x"));
}

TEST(LowercaseSearch, kelvinAndAngstromAreLetters) {
    EXPECT_TRUE(finds(u"k", u"5 \u212A"));
    EXPECT_TRUE(finds(u"\u212A", u"5 k"));
    EXPECT_TRUE(finds(u"\u00E5", u"\u212B"));
    EXPECT_TRUE(finds(u"\u03C9", u"\u2126"));
    EXPECT_TRUE(finds(u"kilo", u"\u212Ailo"));
}

TEST(LowercaseSearch, theDottedCapitalIBecomesTwoUnits) {
    EXPECT_TRUE(finds(u"i", u"\u0130"));
    EXPECT_TRUE(finds(u"\u0307", u"\u0130")) << "the second half alone";
    EXPECT_TRUE(finds(u"\u0307st", u"\u0130stanbul"));
    EXPECT_TRUE(finds(u"\u0130stanbul", u"i\u0307STANBUL"));
    EXPECT_TRUE(finds(u"x\u0130", u"X\u0130"));
    EXPECT_FALSE(finds(u"istanbul", u"\u0130stanbul"));
    EXPECT_TRUE(finds(u"li", u"L\u0130")) << "a match may end within the two";
    EXPECT_TRUE(finds(u"\u0130\u0130\u0130", u"a\u0130\u0130\u0130"));
    EXPECT_FALSE(finds(u"\u0130\u0130\u0130", u"a\u0130\u0130"));
}

TEST(LowercaseSearch, aCapitalSigmaIsFinalOnlyAtTheEndOfAWord) {
    const QStringView odos = u"\u039F\u0394\u039F\u03A3";
    EXPECT_TRUE(finds(u"\u03BF\u03C2", odos));
    EXPECT_FALSE(finds(u"\u03BF\u03C3", odos));
    EXPECT_TRUE(finds(u"\u03BF\u03C3", u"\u039F\u0394\u039F\u03A3\u0391"));
    EXPECT_TRUE(finds(u"\u03C3", u"\u03A3")) << "on its own it is not final";
    EXPECT_FALSE(finds(u"\u03C2", u"\u03A3"));
    EXPECT_TRUE(finds(u"\u03C2.", u"\u0391\u03A3.")) << "a point is ignored";
    EXPECT_TRUE(finds(u"\u03C3.", u"\u0391\u03A3.\u0391")) << "and the letter behind it counts";
    EXPECT_TRUE(finds(u"\u03C2 ", u"\u0391\u03A3 \u0391")) << "a space ends the word";
    EXPECT_TRUE(finds(u"\u03C2", u"\U00010400\u03A3")) << "after a letter outside the basic plane";
}

TEST(LowercaseSearch, pairsOfSurrogatesAreOneLetter) {
    EXPECT_TRUE(finds(u"\U00010428", u"x\U00010400"));
    EXPECT_TRUE(finds(u"\U00010400", u"x\U00010428"));
    EXPECT_FALSE(finds(u"\U00010429", u"\U00010400"));
    EXPECT_TRUE(finds(u"\U0001F600", u"a \U0001F600 b"));
}

TEST(LowercaseSearch, surrogatesOnTheirOwnAreUnitsLikeOthers) {
    const QString low = QChar(0xDC28);
    const QString high = QChar(0xD801);
    EXPECT_TRUE(finds(low, u"\U00010400")) << "the second half of the lower-cased pair";
    EXPECT_FALSE(finds(QString(QChar(0xDC00)), u"\U00010400")) << "not of the pair as it stands";
    EXPECT_TRUE(finds(QString(QChar(0xDC00)), QString(QChar(0xDC00))));
    EXPECT_TRUE(finds(high, u"\U00010400"));
    EXPECT_TRUE(finds(low + QLatin1Char('a'), QStringLiteral("\U00010400A")));
}

TEST(LowercaseSearch, georgianAndSharpSAndDigraphs) {
    EXPECT_TRUE(finds(u"\u10D0", u"\u1C90"));
    EXPECT_TRUE(finds(u"\u2D00", u"\u10A0"));
    EXPECT_TRUE(finds(u"stra\u00DFe", u"STRA\u1E9EE"));
    EXPECT_FALSE(finds(u"stra\u00DFe", u"STRASSE"));
    EXPECT_TRUE(finds(u"\u01C6", u"\u01C5"));
    EXPECT_TRUE(finds(u"\u01C6", u"\u01C4"));
    EXPECT_TRUE(finds(u"\u0450", u"\u0400")) << "Cyrillic";
    EXPECT_TRUE(finds(u"\uAB70", u"\u13A0")) << "Cherokee";
}

TEST(LowercaseSearch, everyCharacterIsFoundByItsLowerCase) {
    for (UChar32 character = 0; character <= 0x10FFFF; ++character) {
        const QString text = character > 0xFFFF
                                 ? QString(QChar(QChar::highSurrogate(static_cast<char32_t>(character)))) +
                                       QChar(QChar::lowSurrogate(static_cast<char32_t>(character)))
                                 : QString(QChar(static_cast<char16_t>(character)));
        const QString lower = Text::lowercased(text);
        if (lower == text)
            continue;
        ASSERT_TRUE(finds(lower, text)) << std::hex << character;
        ASSERT_TRUE(finds(text, lower)) << std::hex << character;
        for (const QChar unit : lower)
            ASSERT_TRUE(finds(QStringView(&unit, 1), text)) << std::hex << character;
        ASSERT_EQ(finds(text, text.toUpper()), reference(text, text.toUpper())) << std::hex << character;
    }
}

TEST(LowercaseSearch, findsAtEveryPlaceInTextsOfEveryLength) {
    for (const QStringView term : {u"q", u"qz", u"quz", u"kiq", u"qqqqqqqqqqqz"}) {
        const LowercaseSearch search(term);
        for (qsizetype before = 0; before < 72; ++before)
            for (qsizetype after = 0; after < 40; ++after) {
                const QString text =
                    QString(before, QLatin1Char('x')) + term.toString().toUpper() + QString(after, QLatin1Char('q'));
                ASSERT_TRUE(search.isIn(text)) << before << ' ' << after;
                ASSERT_EQ(search.isIn(QStringView(text).chopped(after + 1)), false) << before << ' ' << after;
            }
    }
}

/// Texts of few different characters, all of them troublesome, so that near misses and hits both abound.
class Texts final {
public:
    explicit Texts(unsigned seed) : random(seed) {}

    QString text(int longest) {
        static const char32_t characters[] = {
            U'a',   U'A',  U'i',  U'I',   0x130,  0x131,  0x307, U'k',  U'K',  0x212A, 0xE5,   0xC5,    0x212B,  0x3A3,
            0x3C3,  0x3C2, 0x3A9, 0x2126, 0x1E9E, 0xDF,   U'.',  U' ',  U'\'', 0x301,  0xAD,   0x10400, 0x10428, 0x10D0,
            0x1C90, 0x1C5, 0x1C4, 0xD801, 0xDC00, 0xDC28, 0x41F, 0x43F, 0x345, 0x2019, 0x13A0, 0xAB70,  0x1E900, 0x0};
        std::uniform_int_distribution<std::size_t> alphabet(0, below(3) == 0 ? 5 : std::size(characters) - 1);
        QString result;
        for (int left = below(longest + 1); left > 0; --left) {
            const char32_t character = characters[alphabet(random)];
            result += QStringView(QChar::fromUcs4(character));
        }
        return result;
    }
    int below(int bound) { return std::uniform_int_distribution<int>(0, bound - 1)(random); }

private:
    std::mt19937 random;
};

TEST(LowercaseSearch, agreesWithTheLowerCasedTextForAnyText) {
    Texts texts(20240607);
    int found = 0;
    int missed = 0;
    for (int round = 0; round < 60'000; ++round) {
        const QString text = texts.text(round % 3 == 0 ? 160 : 60);
        QString term = texts.text(4);
        if (round % 2 == 0 && !text.isEmpty()) { // a piece of it, so that there is something to find
            const QString source = round % 4 == 0 ? text : Text::lowercased(text);
            term = source.mid(texts.below(static_cast<int>(source.size())), 1 + texts.below(8));
        }
        const bool expected = reference(term, text);
        ASSERT_EQ(finds(term, text), expected) << "round " << round << ": " << term.toUtf8().toHex().constData()
                                               << " in " << text.toUtf8().toHex().constData();
        ++(expected ? found : missed);
    }
    EXPECT_GT(found, 10'000);
    EXPECT_GT(missed, 10'000);
}

} // namespace
} // namespace Quillstacks
