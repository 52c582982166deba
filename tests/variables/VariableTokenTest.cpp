#include "variables/VariableToken.h"

#include <gtest/gtest.h>

#include <random>

namespace Quillstacks {
namespace {

AttributedRun plain(const QString& characters) {
    return {characters, {}};
}

AttributedRun token(const QString& name, const QString& originalFormat) {
    return {QString(QChar::ObjectReplacementCharacter), VariableTokenAttachment{name, originalFormat}};
}

TEST(VariableToken, aTextWithoutPlaceholdersIsOneRun) {
    EXPECT_EQ(attributedText(QStringLiteral("{a b} {} {{}}")), AttributedText{plain(QStringLiteral("{a b} {} {{}}"))});
    EXPECT_TRUE(attributedText(QString()).isEmpty());
}

TEST(VariableToken, textBetweenPlaceholdersStaysInRunsOfItsOwn) {
    EXPECT_EQ(
        attributedText(QStringLiteral("Dear {{ name }}, {topic}{x}!")),
        (AttributedText{plain(QStringLiteral("Dear ")), token(QStringLiteral("name"), QStringLiteral("{{ name }}")),
                        plain(QStringLiteral(", ")), token(QStringLiteral("topic"), QStringLiteral("{topic}")),
                        token(QStringLiteral("x"), QStringLiteral("{x}")), plain(QStringLiteral("!"))}));
}

TEST(VariableToken, aTokenTakesOnePosition) {
    for (const AttributedRun& run : attributedText(QStringLiteral("{{name}}{ a }")))
        EXPECT_EQ(run.characters.size(), 1);
}

TEST(VariableToken, spacesAndBracesSurviveTheRoundTrip) {
    for (const char16_t* text : {u"{{ name }}", u"{name}", u"{{\n name\t}}", u"{{{a}}}", u"{{a}", u"{a}}", u"x{ y }z"})
        EXPECT_EQ(plainText(attributedText(QString::fromUtf16(text))), QString::fromUtf16(text));
}

TEST(VariableToken, unmatchedBracesMakeNoToken) {
    for (const char16_t* text : {u"{{name}", u"{name}}", u"{{a}}}}"}) {
        const AttributedText runs = attributedText(QString::fromUtf16(text));
        const bool hasToken =
            std::any_of(runs.begin(), runs.end(), [](const AttributedRun& run) { return run.attachment.has_value(); });
        EXPECT_EQ(hasToken, std::u16string_view(text) == u"{{a}}}}");
    }
}

TEST(VariableToken, anObjectCharacterOfTheUserIsPlainText) {
    const QString text = QStringLiteral("a") + QChar(QChar::ObjectReplacementCharacter) + QStringLiteral("{b}");
    EXPECT_EQ(attributedText(text).size(), 2);
    EXPECT_EQ(plainText(attributedText(text)), text);
}

TEST(VariableToken, anyTextSurvivesTheRoundTrip) {
    static const char16_t* pieces[] = {u"{",      u"}",      u"{{",     u"}}",     u"name", u" ",
                                       u"\n",     u"\r\n",   u"\r",     u"{x}",    u"é",    u"\u2028",
                                       u"\u2029", u"\u0085", u"\u00A0", u"\uFDD0", u"😀",    u"\uFFFC"};
    std::mt19937 random(3);
    for (int run = 0; run < 3000; ++run) {
        QString text;
        for (auto length = random() % 20; length > 0; --length)
            text += QString::fromUtf16(pieces[random() % std::size(pieces)]);
        const AttributedText attributed = attributedText(text);
        ASSERT_EQ(plainText(attributed), text);
        for (qsizetype i = 1; i < attributed.size(); ++i)
            ASSERT_TRUE(attributed[i].attachment || attributed[i - 1].attachment) << "two plain runs in a row";
    }
}

} // namespace
} // namespace Quillstacks
