#include "analysis/answer/PromptAnalysis.h"
#include "analysis/answer/JsonError.h"

#include <gtest/gtest.h>

namespace Quillstacks {
namespace {

QByteArray sample() {
    return R"({"rating":7,"maxRating":10,"summary":"Short.","strengths":[{"name":"a","description":"b"}],)"
           R"("recommendations":[{"name":"c","description":"d","priority":"high"}]})";
}

/// The sample with one piece put in another's place.
QByteArray with(const char* piece, const char* other) {
    const QByteArray changed = sample().replace(piece, other);
    EXPECT_NE(changed, sample()) << piece;
    return changed;
}

/// The sentence of the failure; empty where there is none.
QString failure(const QByteArray& json) {
    try {
        static_cast<void>(PromptAnalysis::fromJson(json));
    } catch (const JsonError& error) {
        return error.errorDescription();
    }
    return {};
}

} // namespace

TEST(PromptAnalysis, allFieldsAreRead) {
    const PromptAnalysis analysis = PromptAnalysis::fromJson(sample());
    EXPECT_EQ(analysis.rating, 7);
    EXPECT_EQ(analysis.maxRating, 10);
    EXPECT_EQ(analysis.summary, QStringLiteral("Short."));
    EXPECT_EQ(analysis.strengths, (QList<PromptAnalysis::Strength>{{QStringLiteral("a"), QStringLiteral("b")}}));
    EXPECT_EQ(analysis.recommendations, (QList<PromptAnalysis::Recommendation>{
                                            {QStringLiteral("c"), QStringLiteral("d"), QStringLiteral("high")}}));
}

TEST(PromptAnalysis, writingGivesTheSameKeysInTheirOrderAndReadsBack) {
    EXPECT_EQ(PromptAnalysis::fromJson(sample()).toJson(), sample());
    PromptAnalysis odd = PromptAnalysis::fromJson(sample());
    odd.rating = std::numeric_limits<qint64>::min();
    odd.summary = QStringLiteral("quotes \" \\ \n\t and ä 😀");
    odd.strengths.clear();
    EXPECT_EQ(PromptAnalysis::fromJson(odd.toJson()), odd);
}

TEST(PromptAnalysis, everyKeyIsRequired) {
    for (const char* key : {"rating", "maxRating", "summary", "strengths", "recommendations", "priority"}) {
        const QByteArray quoted = '"' + QByteArray(key) + '"';
        EXPECT_TRUE(failure(with(quoted.constData(), "\"x\"")).contains(QLatin1String(quoted))) << key;
    }
    EXPECT_TRUE(failure(with(R"([{"name":"a",)", "[{")).contains(QStringLiteral("\"name\"")));
    EXPECT_TRUE(failure(with(R"(,"description":"b")", "")).contains(QStringLiteral("\"description\"")));
    EXPECT_TRUE(failure(with(R"([{"name":"c",)", "[{")).contains(QStringLiteral("\"name\"")));
    EXPECT_TRUE(failure(with(R"("description":"d",)", "")).contains(QStringLiteral("\"description\"")));
}

TEST(PromptAnalysis, aValueOfAnotherTypeIsAFailure) {
    for (const char* rating : {"\"7\"", "null", "true", "[7]", "7.5", "{}"})
        EXPECT_TRUE(
            failure(with(":7,", (QByteArray(":") + rating + ",").constData())).contains(QStringLiteral("rating")))
            << rating;
    EXPECT_FALSE(failure(with("\"Short.\"", "null")).isEmpty());
    EXPECT_FALSE(failure(with("\"Short.\"", "1")).isEmpty());
    EXPECT_FALSE(failure(with(R"([{"name":"a","description":"b"}])", "{}")).isEmpty());
    EXPECT_FALSE(failure(with(R"([{"name":"a","description":"b"}])", "[\"a\"]")).isEmpty());
    EXPECT_FALSE(failure(with(R"("priority":"high")", R"("priority":1)")).isEmpty());
}

TEST(PromptAnalysis, whatIsNoObjectOrNoJsonIsAFailure) {
    for (const char* json : {"", "null", "[]", "7", "\"x\"", "{", "{\"rating\":7", "<html></html>", "{'rating':7}"})
        EXPECT_FALSE(failure(json).isEmpty()) << json;
    EXPECT_FALSE(failure(with("Short", "\xFF\xC0")).isEmpty()) << "not UTF-8";
    EXPECT_FALSE(failure(sample() + sample()).isEmpty());
    EXPECT_FALSE(failure(QByteArray(100000, '[')).isEmpty());
}

TEST(PromptAnalysis, aRatingOutsideTheScaleIsTakenUnchanged) {
    EXPECT_EQ(PromptAnalysis::fromJson(with(":7,", ":11,")).rating, 11);
    EXPECT_EQ(PromptAnalysis::fromJson(with(":7,", ":-3,")).rating, -3);
    EXPECT_EQ(PromptAnalysis::fromJson(with(":7,", ":0,")).rating, 0);
    EXPECT_EQ(PromptAnalysis::fromJson(with(":10,", ":0,")).maxRating, 0);
}

TEST(PromptAnalysis, aWholeNumberReadsAsAnIntegerHoweverItIsWritten) {
    EXPECT_EQ(PromptAnalysis::fromJson(with(":7,", ":7.0,")).rating, 7);
    EXPECT_EQ(PromptAnalysis::fromJson(with(":7,", ":7e2,")).rating, 700);
    EXPECT_EQ(PromptAnalysis::fromJson(with(":7,", ":-0.0,")).rating, 0);
    EXPECT_EQ(PromptAnalysis::fromJson(with(":7,", ":9223372036854775807,")).rating,
              std::numeric_limits<qint64>::max());
}

TEST(PromptAnalysis, aNumberBeyond64BitsIsAFailure) {
    for (const char* number : {":1e400,", ":9223372036854775808,", ":18446744073709551615,", ":1e19,", ":-1e19,",
                               ":99999999999999999999999999,"})
        EXPECT_FALSE(failure(with(":7,", number)).isEmpty()) << number;
}

TEST(PromptAnalysis, emptyListsAndFurtherKeysAreAccepted) {
    const QByteArray json =
        R"({"extra":{"rating":1},"rating":1,"maxRating":2,"summary":"","strengths":[],"recommendations":[]})";
    const PromptAnalysis analysis = PromptAnalysis::fromJson(json);
    EXPECT_EQ(analysis.rating, 1);
    EXPECT_TRUE(analysis.strengths.isEmpty());
    EXPECT_TRUE(analysis.recommendations.isEmpty());
}

} // namespace Quillstacks
