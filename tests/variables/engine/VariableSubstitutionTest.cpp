#include "variables/engine/VariableEngine.h"

#include <gtest/gtest.h>

namespace Quillstacks {
namespace {

using Values = QHash<QString, QString>;

const QString name = QStringLiteral("name");

/// Fills `name` alone.
QString filled(QStringView body, QStringView value) {
    return substituteVariables(body.toString(), {name}, {{name, value.toString()}});
}

/// Fills all that the text asks for, in the engine's own order.
QString filledAll(QStringView body, const Values& values) {
    return substituteVariables(body.toString(), extractVariables(body.toString()), values);
}

TEST(VariableSubstitution, fillsTheSingleForm) {
    EXPECT_EQ(filled(u"{name}", u"Ada"), QStringLiteral("Ada"));
}

TEST(VariableSubstitution, theDoubleFormKeepsOneBraceAtEachSide) {
    EXPECT_EQ(filled(u"{{name}}", u"Ada"), QStringLiteral("{Ada}"));
}

TEST(VariableSubstitution, threeBracesKeepTwo) {
    EXPECT_EQ(filled(u"{{{name}}}", u"Ada"), QStringLiteral("{{Ada}}"));
}

TEST(VariableSubstitution, spacesInsideTheSingleFormLeaveItAsItIs) {
    EXPECT_EQ(filled(u"{ name }", u"Ada"), QStringLiteral("{ name }"));
}

TEST(VariableSubstitution, spacesInsideTheDoubleFormLeaveItAsItIs) {
    EXPECT_EQ(filled(u"{{ name }}", u"Ada"), QStringLiteral("{{ name }}"));
}

TEST(VariableSubstitution, twoBracesThenOneKeepTheFirst) {
    EXPECT_EQ(filled(u"{{name}", u"Ada"), QStringLiteral("{Ada"));
}

TEST(VariableSubstitution, oneBraceThenTwoKeepTheLast) {
    EXPECT_EQ(filled(u"{name}}", u"Ada"), QStringLiteral("Ada}"));
}

TEST(VariableSubstitution, aQuotedKeyStaysAsItIs) {
    EXPECT_EQ(filled(u"\"name\": 1", u"Ada"), QStringLiteral("\"name\": 1"));
}

TEST(VariableSubstitution, anUnfilledSingleFormIsRemoved) {
    EXPECT_EQ(substituteVariables(QStringLiteral("{name}"), {name}, {}), QString());
    EXPECT_EQ(substituteVariables(QStringLiteral("a {name} b"), {name}, {}), QStringLiteral("a  b"));
}

TEST(VariableSubstitution, anUnfilledDoubleFormLeavesItsBraces) {
    EXPECT_EQ(substituteVariables(QStringLiteral("{{name}}"), {name}, {}), QStringLiteral("{}"));
}

TEST(VariableSubstitution, aPlaceholderSpreadOverLinesIsNotFilled) {
    EXPECT_EQ(filledAll(u"{{\nname\n}}", {{name, QStringLiteral("Ada")}}), QStringLiteral("{{\nname\n}}"));
}

TEST(VariableSubstitution, everyOccurrenceIsFilled) {
    EXPECT_EQ(filled(u"{name}{name} {{name}} {name}", u"A"), QStringLiteral("AA {A} A"));
}

TEST(VariableSubstitution, onlyTheVariablesGivenAreFilled) {
    EXPECT_EQ(
        substituteVariables(QStringLiteral("{a}{b}"), {QStringLiteral("b")},
                            {{QStringLiteral("a"), QStringLiteral("1")}, {QStringLiteral("b"), QStringLiteral("2")}}),
        QStringLiteral("{a}2"));
    EXPECT_EQ(substituteVariables(QStringLiteral("{a}"), {}, {{QStringLiteral("a"), QStringLiteral("1")}}),
              QStringLiteral("{a}"));
}

TEST(VariableSubstitution, isCaseSensitive) {
    EXPECT_EQ(filledAll(u"{NAME} {name}", {{name, QStringLiteral("Ada")}}), QStringLiteral(" Ada"));
}

TEST(VariableSubstitution, aValueThatHoldsALaterNameIsFilledInItsTurn) {
    const Values values{{QStringLiteral("a"), QStringLiteral("{b}")}, {QStringLiteral("b"), QStringLiteral("2")}};
    EXPECT_EQ(filledAll(u"{a} {b}", values), QStringLiteral("2 2"));
}

TEST(VariableSubstitution, aValueThatHoldsAnEarlierNameStaysAsTyped) {
    const Values values{{QStringLiteral("a"), QStringLiteral("1")}, {QStringLiteral("b"), QStringLiteral("{a}")}};
    EXPECT_EQ(filledAll(u"{a} {b}", values), QStringLiteral("1 {a}"));
}

TEST(VariableSubstitution, theOrderGivenIsTheOrderOfReplacement) {
    const Values values{{QStringLiteral("a"), QStringLiteral("1")}, {QStringLiteral("b"), QStringLiteral("{a}")}};
    EXPECT_EQ(substituteVariables(QStringLiteral("{b}"), {QStringLiteral("b"), QStringLiteral("a")}, values),
              QStringLiteral("1"));
}

TEST(VariableSubstitution, aValueIsNeitherTrimmedNorEscaped) {
    EXPECT_EQ(filled(u"[{name}]", u" \\1 $1 \\n {0} %1 \n"), QStringLiteral("[ \\1 $1 \\n {0} %1 \n]"));
}

TEST(VariableSubstitution, dotsAndDashesInANameAreLiteral) {
    const QStringList dotted{QStringLiteral("a.b")};
    EXPECT_EQ(substituteVariables(QStringLiteral("{a.b} {axb}"), dotted, {{dotted[0], QStringLiteral("1")}}),
              QStringLiteral("1 {axb}"));
}

TEST(VariableSubstitution, theDoubleRoundMeetsOnlyWhatTheSingleRoundMade) {
    // With its own name as the value three braces become two, which the second round fills.
    EXPECT_EQ(filled(u"{{{name}}}", u"name"), QStringLiteral("name"));
    EXPECT_EQ(filled(u"{{name}}", u"name"), QStringLiteral("{name}")) << "and the single round is not run again";
    EXPECT_EQ(filled(u"{name}", u"{{name}}"), QStringLiteral("{{name}}"));
}

TEST(VariableSubstitution, aTextWithoutPlaceholdersIsItself) {
    const QString text = QStringLiteral("plain \U0001F600 } {");
    EXPECT_EQ(filledAll(text, {{name, QStringLiteral("x")}}), text);
    EXPECT_EQ(substituteVariables({}, {name}, {{name, QStringLiteral("x")}}), QString());
}

TEST(VariableSubstitution, placeholdersBesideOtherPlanesAndUnpairedSurrogatesAreFilled) {
    const QString lone = QChar(0xD83D);
    EXPECT_EQ(filled(QStringLiteral("\U0001F600{name}") + lone, u"\U0001F601"),
              QStringLiteral("\U0001F600\U0001F601") + lone);
}

TEST(VariableSubstitution, aJsonExampleKeepsItsKeysWhateverTheirValues) {
    const Values values{{QStringLiteral("title"), QStringLiteral("T")}, {QStringLiteral("who"), QStringLiteral("Ada")}};
    EXPECT_EQ(filledAll(u"{\"title\": \"{who}\"}", values), QStringLiteral("{\"title\": \"Ada\"}"));
}

} // namespace
} // namespace Quillstacks
