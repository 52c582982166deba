#include "variables/engine/VariableEngine.h"

#include <gtest/gtest.h>

namespace Quillstacks {
namespace {

QStringList names(QStringView text) {
    return extractVariables(text.toString());
}

/// The tokens of a text, each as "location+length name".
QStringList tokens(QStringView text) {
    QStringList result;
    for (const VariableTokenMatch& match : variableTokenMatches(text.toString()))
        result +=
            QStringLiteral("%1+%2 %3").arg(QString::number(match.location), QString::number(match.length), match.name);
    return result;
}

QStringList list(std::initializer_list<const char16_t*> texts) {
    QStringList result;
    for (const char16_t* text : texts)
        result += QString::fromUtf16(text);
    return result;
}

TEST(VariableEngine, thePatternsAreTheAgreedOnes) {
    EXPECT_EQ(QStringView(variableDetectionPattern),
              QStringView(u"\\{\\{?\\s*([a-zA-Z0-9_\\-\\.]+)\\s*\\}?\\}|\\\"([a-zA-Z0-9_\\-\\.]+)\\\"\\s*:"));
    EXPECT_EQ(QStringView(doubleBracePattern), QStringView(u"\\{\\{\\s*([a-zA-Z0-9_\\-.]+)\\s*\\}\\}"));
    EXPECT_EQ(QStringView(singleBracePattern), QStringView(u"(?<!\\{)\\{\\s*([a-zA-Z0-9_\\-.]+)\\s*\\}(?!\\})"));
}

TEST(VariableEngine, aTextWithoutPlaceholdersYieldsNothing) {
    for (const QStringView text : {u"", u"plain", u"}{", u"a: b", u"\"a\"", u"}} {{"}) {
        EXPECT_TRUE(names(text).isEmpty()) << qPrintable(text.toString());
        EXPECT_TRUE(tokens(text).isEmpty()) << qPrintable(text.toString());
    }
    EXPECT_TRUE(extractVariables(QString()).isEmpty());
    EXPECT_TRUE(variableTokenMatches(QString()).isEmpty());
}

TEST(VariableEngine, bracesWithoutANameAreNoVariable) {
    for (const QStringView text : {u"{}", u"{{}}", u"{ }", u"{a b}", u"{\u00E9}"}) {
        EXPECT_TRUE(names(text).isEmpty()) << qPrintable(text.toString());
        EXPECT_TRUE(tokens(text).isEmpty()) << qPrintable(text.toString());
    }
}

TEST(VariableEngine, aNameMayBeginWithAnyOfItsCharacters) {
    EXPECT_EQ(names(u"{1st} {.x} {-} {_} {a.b-c_d9Z}"), list({u"-", u".x", u"1st", u"_", u"a.b-c_d9Z"}));
}

TEST(VariableEngine, otherCharactersEndTheName) {
    for (const QStringView text :
         {u"{a/b}", u"{a:b}", u"{a$}", u"{@a}", u"{a,b}", u"{\u0430}", u"{a\u0301}", u"{\uFF41}"})
        EXPECT_TRUE(names(text).isEmpty()) << qPrintable(text.toString());
}

TEST(VariableEngine, theBraceCountsNeedNotAgree) {
    for (const QStringView text :
         {u"{name}", u"{{name}}", u"{{name}", u"{name}}", u"{ name }", u"{{ name }}", u"{{ name}", u"{name }}"})
        EXPECT_EQ(names(text), list({u"name"})) << qPrintable(text.toString());
}

TEST(VariableEngine, oneVariableThreeTokens) {
    EXPECT_EQ(names(u"{{a}} {{a}} {a}"), list({u"a"}));
    EXPECT_EQ(tokens(u"{{a}} {{a}} {a}"), list({u"0+5 a", u"6+5 a", u"12+3 a"}));
}

TEST(VariableEngine, twoPlaceholdersSideBySideAreBothKept) {
    EXPECT_EQ(names(u"{a}{b}"), list({u"a", u"b"}));
    EXPECT_EQ(tokens(u"{a}{b}"), list({u"0+3 a", u"3+3 b"}));
    EXPECT_EQ(tokens(u"{{a}}{b}{{c}}"), list({u"0+5 a", u"5+3 b", u"8+5 c"}));
}

TEST(VariableEngine, threeBracesShowATokenFromTheSecondBrace) {
    EXPECT_EQ(names(u"{{{a}}}"), list({u"a"}));
    EXPECT_EQ(tokens(u"{{{a}}}"), list({u"1+5 a"}));
}

TEST(VariableEngine, oneBraceThenTwoIsAVariableButNoToken) {
    EXPECT_EQ(names(u"{a}}"), list({u"a"}));
    EXPECT_TRUE(tokens(u"{a}}").isEmpty());
}

TEST(VariableEngine, twoBracesThenOneIsAVariableButNoToken) {
    EXPECT_EQ(names(u"{{a}"), list({u"a"}));
    EXPECT_TRUE(tokens(u"{{a}").isEmpty());
}

TEST(VariableEngine, aQuotedKeyIsAVariableButNoToken) {
    EXPECT_EQ(names(u"\"title\": 1"), list({u"title"}));
    EXPECT_EQ(names(u"\"key\"   : 1"), list({u"key"}));
    EXPECT_TRUE(names(u"\"key\" = 1").isEmpty());
    EXPECT_TRUE(names(u"'key': 1").isEmpty());
    EXPECT_TRUE(names(u"\" key\": 1").isEmpty()) << "no space within the quotes";
    EXPECT_TRUE(names(u"\"\": 1").isEmpty());
    EXPECT_TRUE(tokens(u"\"title\": 1").isEmpty());
}

TEST(VariableEngine, aTextOfOnlyAQuotedKeyGivesItsName) {
    EXPECT_EQ(names(u"\"a\":"), list({u"a"}));
}

TEST(VariableEngine, aJsonExampleAsksForEachOfItsKeys) {
    EXPECT_EQ(names(u"{\"title\": \"x\", \"tags\": [{\"name\": \"{who}\"}]}"),
              list({u"name", u"tags", u"title", u"who"}));
}

TEST(VariableEngine, aBraceWithinAQuotedKeyIsFoundByTheFirstAlternative) {
    EXPECT_EQ(names(u"\"{a}\": 1"), list({u"a"}));
    EXPECT_EQ(names(u"{\"a\"}: 1"), QStringList()) << "quotes are no part of a name";
    EXPECT_EQ(names(u"{\"a\":1}"), list({u"a"}));
}

TEST(VariableEngine, aQuoteThatEndsOneTextMayBeginAKey) {
    EXPECT_EQ(names(u"\"x\"y\": 1"), list({u"y"}));
}

TEST(VariableEngine, aPlaceholderSpreadOverLinesIsDetected) {
    EXPECT_EQ(names(u"{{\n  name\r\n}}"), list({u"name"}));
    EXPECT_EQ(tokens(u"{{\n  name\r\n}}"), list({u"0+13 name"}));
    EXPECT_EQ(names(u"\"a\"\n\n:"), list({u"a"}));
}

TEST(VariableEngine, unicodeWhiteSpaceCountsAsSpace) {
    for (const QStringView text : {u"{\u00A0a\u3000}", u"{\u2028a\u2029}", u"{\u0085a\u000B}", u"{\u1680a\u202F}"}) {
        EXPECT_EQ(names(text), list({u"a"})) << qPrintable(text.toString());
        EXPECT_EQ(tokens(text), list({u"0+5 a"})) << qPrintable(text.toString());
    }
    for (const QStringView text : {u"{\u200Ba}", u"{\uFEFFa}", u"{\u180Ea}"})
        EXPECT_TRUE(names(text).isEmpty()) << "invisible, but no white space";
}

TEST(VariableEngine, namesAreCaseSensitiveAndCapitalsStandFirst) {
    EXPECT_EQ(names(u"{{NAME}} {{name}}"), list({u"NAME", u"name"}));
    EXPECT_EQ(names(u"{a} {B}"), list({u"B", u"a"}));
}

TEST(VariableEngine, theOrderIsByCharacterCodeAndNotByNumberOrPosition) {
    EXPECT_EQ(names(u"{z} {9} {10} {_} {-} {.} {A} {a1} {a}"),
              list({u"-", u".", u"10", u"9", u"A", u"_", u"a", u"a1", u"z"}));
}

TEST(VariableEngine, rangesCountUtf16Units) {
    const QString text = QStringLiteral("\U0001F600{a}\U0001F468\u200D\U0001F469 {{b}}");
    const QList<VariableTokenMatch> matches = variableTokenMatches(text);
    ASSERT_EQ(matches.size(), 2);
    EXPECT_EQ(matches[0], (VariableTokenMatch{2, 3, QStringLiteral("a")}));
    EXPECT_EQ(matches[1], (VariableTokenMatch{11, 5, QStringLiteral("b")}));
    EXPECT_EQ(text.mid(matches[1].location, matches[1].length), QStringLiteral("{{b}}"));
}

TEST(VariableEngine, unpairedSurrogatesAndNulAreOrdinaryText) {
    const QString text = QString(QChar(0xD800)) + QStringLiteral("{a}") + QChar(0xDC00) + QChar(u'\0') +
                         QStringLiteral("{{b}}") + QChar(0xD800);
    EXPECT_EQ(names(text), list({u"a", u"b"}));
    EXPECT_EQ(tokens(text), list({u"1+3 a", u"6+5 b"}));
}

TEST(VariableEngine, aSurrogatePairBesideABraceIsNoBrace) {
    EXPECT_EQ(tokens(u"\U0001F600{a}\U0001F600"), list({u"2+3 a"}));
}

TEST(VariableEngine, tokensNeverOverlapWhereBracesNest) {
    EXPECT_EQ(tokens(u"{{a}}}"), list({u"0+5 a"}));
    EXPECT_EQ(tokens(u"{ {a}"), list({u"2+3 a"}));
    EXPECT_EQ(tokens(u"{{a} }"), QStringList());
    EXPECT_EQ(tokens(u"{a{b}c}"), list({u"2+3 b"}));
    EXPECT_EQ(tokens(u"{{ {a} }}"), list({u"3+3 a"}));
    EXPECT_EQ(tokens(u"{{{{a}}}}"), list({u"2+5 a"}));
}

TEST(VariableEngine, tenMegabytesOfAnythingWork) {
    constexpr qsizetype length = 5'000'000; // units, two bytes each
    const QString spaces = QLatin1Char('{') + QString(length, QLatin1Char(' ')) + QLatin1Char('}');
    EXPECT_TRUE(names(spaces).isEmpty());
    EXPECT_TRUE(tokens(spaces).isEmpty());
    const QString name = QLatin1Char('{') + QString(length, QLatin1Char('a')) + QLatin1Char('}');
    EXPECT_EQ(extractVariables(name), QStringList(name.mid(1, length)));
    EXPECT_EQ(variableTokenMatches(name).size(), 1);
    EXPECT_TRUE(names(name.chopped(1)).isEmpty());
    const QString many = QStringLiteral("{{a}}{b}").repeated(100'000);
    EXPECT_EQ(names(many), list({u"a", u"b"}));
    EXPECT_EQ(variableTokenMatches(many).size(), 200'000);
    EXPECT_TRUE(names(QString(length, QLatin1Char('{'))).isEmpty());
    EXPECT_TRUE(names(QString(length, QLatin1Char('"'))).isEmpty());
}

TEST(VariableEngine, aNameBehindAMillionSpacesIsFound) {
    const QString text = QStringLiteral("{{") + QString(1'000'000, QLatin1Char('\n')) + QStringLiteral("a}}");
    EXPECT_EQ(names(text), list({u"a"}));
    EXPECT_EQ(variableTokenMatches(text).size(), 1);
}

} // namespace
} // namespace Quillstacks
