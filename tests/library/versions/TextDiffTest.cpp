#include "TextDiff.h"

#include <QStringList>

#include <random>

#include <gtest/gtest.h>

using namespace Quillstacks;

namespace {

using Kind = DiffLine::Kind;

QStringList linesOf(const QString& text) {
    QStringList result;
    for (const QStringView line : splitLines(text))
        result += line.toString();
    return result;
}

/// The lines, each with a sign before it.
QStringList diff(const char* oldText, const char* newText) {
    QStringList result;
    for (const DiffLine& line : textDiff(QString::fromUtf8(oldText), QString::fromUtf8(newText)))
        result += QLatin1Char(line.kind == Kind::plain ? ' ' : line.kind == Kind::inserted ? '+' : '-') + line.text;
    return result;
}

QStringList list(std::initializer_list<const char*> texts) {
    QStringList result;
    for (const char* text : texts)
        result += QString::fromUtf8(text);
    return result;
}

QStringList without(const QList<DiffLine>& lines, Kind kind) {
    QStringList result;
    for (const DiffLine& line : lines)
        if (line.kind != kind)
            result += line.text;
    return result;
}

} // namespace

TEST(TextDiff, everyCharacterOfTheNewlineSetEndsALine) {
    for (const char16_t unit : {u'\n', u'\v', u'\f', u'\r', u'\u0085', u'\u2028', u'\u2029'})
        EXPECT_EQ(linesOf(QStringLiteral("a") + QChar(unit) + QStringLiteral("b")), list({"a", "b"})) << int(unit);
}

TEST(TextDiff, noOtherCharacterEndsALine) {
    for (const char16_t unit : {u'\t', u'\u000E', u'\u001C', u'\u0084', u'\u00A0', u'\u200B', u'\u2027', u'\u202A'})
        EXPECT_EQ(linesOf(QStringLiteral("a") + QChar(unit) + QStringLiteral("b")).size(), 1) << int(unit);
}

TEST(TextDiff, carriageReturnLineFeedHasAnEmptyLineInBetween) {
    EXPECT_EQ(linesOf(QStringLiteral("a\r\nb")), list({"a", "", "b"}));
}

TEST(TextDiff, anEmptyTextIsOneEmptyLine) {
    EXPECT_EQ(linesOf(QString()), list({""}));
}

TEST(TextDiff, aLineEndAtTheEndMakesAnEmptyLastLine) {
    EXPECT_EQ(linesOf(QStringLiteral("a\n")), list({"a", ""}));
}

TEST(TextDiff, aLineAddedAtTheEndIsTheOnlyOneInserted) {
    EXPECT_EQ(diff("one\ntwo", "one\ntwo\nthree"), list({" one", " two", "+three"}));
}

TEST(TextDiff, aLineRemovedAtTheStartIsTheOnlyOneDeleted) {
    EXPECT_EQ(diff("one\ntwo\nthree", "two\nthree"), list({"-one", " two", " three"}));
}

TEST(TextDiff, aWordChangedWithinALineShowsAsThatLineDeletedAndTheNewOneInserted) {
    EXPECT_EQ(diff("a\nthe old word\nb", "a\nthe new word\nb"), list({" a", "-the old word", "+the new word", " b"}));
}

TEST(TextDiff, deletionsComeBeforeTheInsertionsOfTheSamePlace) {
    EXPECT_EQ(diff("a\nb\nx", "c\nd\nx"), list({"-a", "-b", "+c", "+d", " x"}));
}

TEST(TextDiff, equalTextsArePlainThroughout) {
    EXPECT_EQ(diff("a\nb", "a\nb"), list({" a", " b"}));
}

TEST(TextDiff, anEmptyOldBodyShowsItsEmptyLineAsTheDiffGivesIt) {
    EXPECT_EQ(diff("", "new"), list({"-", "+new"}));
    EXPECT_EQ(diff("", "\nnew"), list({" ", "+new"}));
}

TEST(TextDiff, anEmptyNewBodyKeepsAnEmptyLine) {
    EXPECT_EQ(diff("old", ""), list({"-old", "+"}));
}

TEST(TextDiff, twoEmptyBodiesAreOneEmptyPlainLine) {
    EXPECT_EQ(diff("", ""), list({" "}));
}

TEST(TextDiff, linesAreComparedExactly) {
    EXPECT_EQ(diff("A ", "A"), list({"-A ", "+A"}));
    EXPECT_EQ(diff("a", "A"), list({"-a", "+A"}));
}

TEST(TextDiff, linesThatDifferOnlyInWhatEndsThemAreEqual) {
    EXPECT_EQ(diff("a\vb", "a\nb"), list({" a", " b"}));
}

TEST(TextDiff, interleavedChangesAreInTheOrderOfTheDiff) {
    EXPECT_EQ(diff("a\nb\nc\na\nb\nb\na", "c\nb\na\nb\na\nc"),
              list({"-a", "-b", " c", "+b", " a", " b", "-b", " a", "+c"}));
}

TEST(TextDiff, anyTwoTextsComeOutWholeOnTheirOwnSide) {
    std::mt19937 random(7);
    const auto text = [&random] {
        QString result;
        const auto length = random() % 12;
        for (unsigned i = 0; i < length; ++i)
            result += QString(QLatin1Char("ab\nc\r"[random() % 5]));
        return result;
    };
    for (int round = 0; round < 3000; ++round) {
        const QString older = text();
        const QString newer = text();
        const QList<DiffLine> lines = textDiff(older, newer);
        ASSERT_FALSE(lines.isEmpty());
        ASSERT_EQ(without(lines, Kind::inserted), linesOf(older)) << qPrintable(older) << "|" << qPrintable(newer);
        ASSERT_EQ(without(lines, Kind::deleted), linesOf(newer)) << qPrintable(older) << "|" << qPrintable(newer);
    }
}
