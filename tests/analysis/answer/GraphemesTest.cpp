#include "Graphemes.h"

#include <QString>

#include <gtest/gtest.h>
#include <unicode/brkiter.h>

#include <array>
#include <memory>
#include <random>

namespace Quillstacks {
namespace {

/// The same search by the whole rules of Unicode, slowly.
qsizetype firstByTheBook(const QString& text, const QString& wanted) {
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::BreakIterator> characters(
        icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
    const icu::UnicodeString string(reinterpret_cast<const char16_t*>(text.utf16()), static_cast<int32_t>(text.size()));
    characters->setText(string);
    for (qsizetype at = text.indexOf(wanted); at >= 0; at = text.indexOf(wanted, at + 1))
        if (characters->isBoundary(static_cast<int32_t>(at)) &&
            characters->isBoundary(static_cast<int32_t>(at + wanted.size())))
            return at;
    return -1;
}

} // namespace

TEST(Graphemes, theSearchAgreesWithTheRulesOfUnicode) {
    static const std::array pieces{
        u"{",          u"}",          u"```",    u"`",      u"\n",     u"\r",         u"\r\n",
        u"\u0301",     u"\u200D",     u"\u0600", u"\u0903", u"a",      u" ",          u"\U0001F469",
        u"\U0001F3FD", u"\U0001F1E9", u"\u1100", u"\u1161", u"\u0085", u"\U000110BD", u"\U0001F3FD\u200D"};
    std::mt19937 random(7);
    for (int round = 0; round < 20000; ++round) {
        QString text;
        for (std::size_t count = random() % 8; count > 0; --count)
            text += QString::fromUtf16(pieces[random() % pieces.size()]);
        for (const QString& wanted :
             {QStringLiteral("{"), QStringLiteral("}"), QStringLiteral("\n"), QStringLiteral("```")})
            ASSERT_EQ(Graphemes::first(text, wanted), firstByTheBook(text, wanted))
                << text.toHtmlEscaped().toUtf8().toPercentEncoding().constData();
    }
}

TEST(Graphemes, theLastOneIsFoundFromTheEnd) {
    EXPECT_EQ(Graphemes::last(u"a}b}", u"}"), 3);
    EXPECT_EQ(Graphemes::last(u"}\u0301}\u0301", u"}"), -1);
    EXPECT_EQ(Graphemes::last(u"}b}\u0301", u"}"), 0);
    EXPECT_EQ(Graphemes::last(u"", u"}"), -1);
}

TEST(Graphemes, halfASurrogatePairIsACharacterOfItsOwn) {
    const char16_t halves[] = {u'{', 0xD83D, u'}', 0xDE00, u'{'};
    const QStringView text(halves, 5);
    EXPECT_EQ(Graphemes::first(text, u"{"), 0);
    EXPECT_EQ(Graphemes::last(text, u"}"), 2);
}

} // namespace Quillstacks
