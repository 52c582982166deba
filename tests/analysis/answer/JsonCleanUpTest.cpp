#include "analysis/answer/JsonCleanUp.h"

#include <gtest/gtest.h>

namespace Quillstacks {
namespace {

QString cleaned(const char16_t* answer) {
    return cleanJSONResponse(QString::fromUtf16(answer));
}

const QString object = QStringLiteral("{\"a\": 1}");

} // namespace

TEST(JsonCleanUp, anObjectAloneStaysAsItIs) {
    EXPECT_EQ(cleaned(u"{\"a\": 1}"), object);
    EXPECT_EQ(cleaned(u"{}"), QStringLiteral("{}"));
}

TEST(JsonCleanUp, anAnswerFencedAsJsonCleansToTheObjectBetween) {
    EXPECT_EQ(cleaned(u"```json\n{\"a\": 1}\n```"), object);
}

TEST(JsonCleanUp, aFenceWithAnotherTagIsDroppedWithItsWholeLine) {
    EXPECT_EQ(cleaned(u"```javascript {x}\n{\"a\": 1}\n```"), object);
    EXPECT_EQ(cleaned(u"```\n{\"a\": 1}\n```"), object);
    EXPECT_EQ(cleaned(u"````\n{\"a\": 1}\n```"), object);
}

TEST(JsonCleanUp, aFenceOnOneLineIsReplaced) {
    EXPECT_EQ(cleaned(u"```json{\"a\": 1}```"), object);
    EXPECT_EQ(cleaned(u"```json {\"a\": 1} ```"), object);
    EXPECT_EQ(cleaned(u"```{\"a\": 1}```"), object);
    EXPECT_EQ(cleaned(u"```js{\"a\": 1}```"), object);
    EXPECT_EQ(cleaned(u"```json no ```json object ```"), QStringLiteral("no  object"));
}

TEST(JsonCleanUp, aReturnAndLineFeedTogetherIsNoNewline) {
    // So this one counts as a fence on one line, and the brace in its tag is kept.
    EXPECT_EQ(cleaned(u"```json {x\r\n{\"a\": 1}\r\n```"), QStringLiteral("{x\r\n{\"a\": 1}"));
    EXPECT_EQ(cleaned(u"```json {x\n{\"a\": 1}\r\n```"), object);
}

TEST(JsonCleanUp, chatterAheadAndBehindIsCutAway) {
    EXPECT_EQ(cleaned(u"Sure, here it is:\n{\"a\": 1}\nHope it helps!"), object);
    EXPECT_EQ(cleaned(u"Sure:\n```json\n{\"a\": 1}\n```\nBye"), object);
}

TEST(JsonCleanUp, aClosingFenceFollowedByCommentaryIsCutAtTheFence) {
    EXPECT_EQ(cleaned(u"```json\n{\"a\": 1}\n```\nI hope {this} helps}"), object);
    // The last fence counts, and what follows it goes.
    EXPECT_EQ(cleaned(u"```\n{\"a\": 1}```b}```c}"), QStringLiteral("{\"a\": 1}```b}"));
}

TEST(JsonCleanUp, anOpeningFenceWithoutAClosingOneLeavesTheText) {
    EXPECT_EQ(cleaned(u"```json\n{\"a\": 1}"), object);
    EXPECT_EQ(cleaned(u"```json\n{\"a\": 1} and so on"), object);
}

TEST(JsonCleanUp, anAnswerWithoutAnOpeningBraceIsReturnedTrimmed) {
    EXPECT_EQ(cleaned(u" \n no object } here \r\n"), QStringLiteral("no object } here"));
    EXPECT_EQ(cleaned(u"```\nnothing\n```"), QStringLiteral("nothing"));
    EXPECT_EQ(cleaned(u""), QString());
    EXPECT_EQ(cleaned(u" \n\u3000"), QString());
    EXPECT_EQ(cleaned(u"```"), QString());
    EXPECT_EQ(cleaned(u"``````"), QString());
}

TEST(JsonCleanUp, anAnswerWithoutAClosingBraceIsReturnedTrimmed) {
    EXPECT_EQ(cleaned(u"  text { \"a\": 1 \n"), QStringLiteral("text { \"a\": 1"));
}

TEST(JsonCleanUp, theFirstOpeningAndTheLastClosingBraceCountBalancedOrNot) {
    EXPECT_EQ(cleaned(u"a {{ b } c } d }"), QStringLiteral("{{ b } c } d }"));
    EXPECT_EQ(cleaned(u"} {\"a\": 1}"), object);
    EXPECT_EQ(cleaned(u"{\"a\": 1} {"), object);
}

TEST(JsonCleanUp, aTabIsNotTrimmed) {
    EXPECT_EQ(cleaned(u"\ttext\t"), QStringLiteral("\ttext\t"));
    // So no fence is seen behind it, and what follows the closing one stays.
    EXPECT_EQ(cleaned(u"\t```\n{\"a\": 1}\n```\n}"), QStringLiteral("{\"a\": 1}\n```\n}"));
}

TEST(JsonCleanUp, whatIsTrimmedAreSpacesAndLineEnds) {
    EXPECT_EQ(cleaned(u"\n\v\f\r\u0085 \u00A0\u1680\u2000\u200A\u202F\u205F\u3000x\u3000\u00A0\u0085\r\n"),
              QStringLiteral("x"));
    EXPECT_EQ(cleaned(u"\u2028x\u2029"), QString::fromUtf16(u"\u2028x\u2029"));
    EXPECT_EQ(cleaned(u"\u200Bx"), QString::fromUtf16(u"\u200Bx"));
}

TEST(JsonCleanUp, aBraceWithACombiningMarkIsAnotherCharacter) {
    EXPECT_EQ(cleaned(u"{\u0301 {\"a\": 1} }\u0301"), object);
    EXPECT_EQ(cleaned(u"{\u200D {\"a\": 1}"), object);
    // A prefix that joins what follows it.
    EXPECT_EQ(cleaned(u"\u0600{ {\"a\": 1}"), object);
    EXPECT_EQ(cleaned(u"only {\u0301\"a\": 1}"), QString::fromUtf16(u"only {\u0301\"a\": 1}"));
    EXPECT_EQ(cleaned(u"only {\"a\": 1}\u0301"), QString::fromUtf16(u"only {\"a\": 1}\u0301"));
}

TEST(JsonCleanUp, backticksWithACombiningMarkAreNoFence) {
    EXPECT_EQ(cleaned(u"```\u0301 {x\n{\"a\": 1}"), QStringLiteral("{x\n{\"a\": 1}"));
}

TEST(JsonCleanUpDeathTest, aClosingBraceAheadOfTheOnlyOpeningOneStopsTheProcess) {
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_DEATH(static_cast<void>(cleaned(u"} and {")), "closing brace");
    EXPECT_DEATH(static_cast<void>(cleaned(u"```json\n}{\n```")), "closing brace");
}

} // namespace Quillstacks
