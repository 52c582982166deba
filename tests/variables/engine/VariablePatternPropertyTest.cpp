#include "variables/engine/VariableEngine.h"

#include <QSet>

#include <gtest/gtest.h>
#include <unicode/uchar.h>

#include <optional>
#include <random>

namespace Quillstacks {
namespace {

// The three patterns once more, by hand: each reads one match at a given place, with what the pattern tries first.

bool isNameUnit(QChar unit) {
    return (unit >= QLatin1Char('a') && unit <= QLatin1Char('z')) ||
           (unit >= QLatin1Char('A') && unit <= QLatin1Char('Z')) ||
           (unit >= QLatin1Char('0') && unit <= QLatin1Char('9')) || unit == QLatin1Char('_') ||
           unit == QLatin1Char('-') || unit == QLatin1Char('.');
}

/// Walks over a text; every step that finds what it wants moves on.
struct Walker {
    QStringView text;
    qsizetype position = 0;

    [[nodiscard]] bool isAt(char unit) const { return position < text.size() && text[position] == QLatin1Char(unit); }
    bool take(char unit) {
        const bool there = isAt(unit);
        position += there ? 1 : 0;
        return there;
    }
    void takeSpaces() {
        while (position < text.size() && u_isUWhiteSpace(text[position].unicode()))
            ++position;
    }
    QString takeName() {
        const qsizetype start = position;
        while (position < text.size() && isNameUnit(text[position]))
            ++position;
        return text.sliced(start, position - start).toString();
    }
};

using Match = std::optional<VariableTokenMatch>;

/// Opening braces, name, closing braces; the longest closing within the bounds.
Match bracesAt(QStringView text, qsizetype start, int opening, int fewestClosing, int mostClosing) {
    Walker walker{text, start};
    for (int i = 0; i < opening; ++i)
        if (!walker.take('{'))
            return {};
    walker.takeSpaces();
    const QString name = walker.takeName();
    walker.takeSpaces();
    int closing = 0;
    while (closing < mostClosing && walker.take('}'))
        ++closing;
    if (name.isEmpty() || closing < fewestClosing)
        return {};
    return VariableTokenMatch{start, walker.position - start, name};
}

Match detectionAt(QStringView text, qsizetype start) {
    if (const Match match = bracesAt(text, start, 2, 1, 2))
        return match;
    if (const Match match = bracesAt(text, start, 1, 1, 2))
        return match;
    Walker walker{text, start};
    if (!walker.take('"'))
        return {};
    const QString name = walker.takeName();
    if (name.isEmpty() || !walker.take('"'))
        return {};
    walker.takeSpaces();
    if (!walker.take(':'))
        return {};
    return VariableTokenMatch{start, walker.position - start, name};
}

Match doubleAt(QStringView text, qsizetype start) {
    return bracesAt(text, start, 2, 2, 2);
}

Match singleAt(QStringView text, qsizetype start) {
    if (start > 0 && text[start - 1] == QLatin1Char('{'))
        return {};
    const Match match = bracesAt(text, start, 1, 1, 1);
    return match && Walker{text, start + match->length}.isAt('}') ? Match() : match;
}

QList<VariableTokenMatch> all(QStringView text, Match (*at)(QStringView, qsizetype)) {
    QList<VariableTokenMatch> result;
    for (qsizetype position = 0; position < text.size();) {
        const Match match = at(text, position);
        if (match)
            result.append(*match);
        position += match ? match->length : 1;
    }
    return result;
}

QStringList namesByHand(const QString& text) {
    QStringList names;
    for (const VariableTokenMatch& match : all(text, detectionAt))
        names += match.name;
    names.removeDuplicates();
    std::sort(names.begin(), names.end(),
              [](const QString& a, const QString& b) { return a.toLatin1() < b.toLatin1(); });
    return names;
}

QList<VariableTokenMatch> tokensByHand(const QString& text) {
    QList<VariableTokenMatch> both = all(text, doubleAt) + all(text, singleAt);
    std::sort(both.begin(), both.end(), [](const auto& a, const auto& b) { return a.location < b.location; });
    QList<VariableTokenMatch> kept;
    for (const VariableTokenMatch& match : both)
        if (kept.isEmpty() || match.location >= kept.last().location + kept.last().length)
            kept += match;
    return kept;
}

QString replaceByHand(const QString& text, const QString& what, const QString& value) {
    QString result;
    for (qsizetype position = 0; position < text.size();) {
        if (QStringView(text).sliced(position).startsWith(what)) {
            result += value;
            position += what.size();
        } else {
            result += text[position++];
        }
    }
    return result;
}

QString randomText(std::mt19937& random, int longest) {
    static const QStringList pieces{
        QStringLiteral("{"),      QStringLiteral("{"),      QStringLiteral("{{"),     QStringLiteral("}"),
        QStringLiteral("}"),      QStringLiteral("}}"),     QStringLiteral("a"),      QStringLiteral("B"),
        QStringLiteral("a.b"),    QStringLiteral("-_9"),    QStringLiteral(" "),      QStringLiteral("\n"),
        QStringLiteral("\""),     QStringLiteral("\""),     QStringLiteral(":"),      QStringLiteral("\":"),
        QStringLiteral("\u00E9"), QStringLiteral("\u2028"), QStringLiteral("\u200B"), QStringLiteral("\U0001F600"),
        QString(QChar(0xD800)),   QString(QChar(0xDC00)),   QString(QChar(u'\0'))};
    const auto below = [&](qsizetype bound) { return std::uniform_int_distribution<qsizetype>(0, bound - 1)(random); };
    // Some of the texts from the first pieces alone, in which braces and names meet more often.
    const qsizetype kinds = below(2) == 0 ? 9 : pieces.size();
    QString text;
    for (qsizetype left = below(longest); left > 0; --left)
        text += pieces[below(kinds)];
    return text;
}

TEST(VariablePatterns, agreeWithAReadingByHandForAnyText) {
    std::mt19937 random(31);
    int withNames = 0;
    int withTokens = 0;
    for (int round = 0; round < 40'000; ++round) {
        const QString text = randomText(random, 24);
        const QStringList names = namesByHand(text);
        const QList<VariableTokenMatch> tokens = tokensByHand(text);
        ASSERT_EQ(extractVariables(text), names) << qPrintable(text);
        ASSERT_EQ(variableTokenMatches(text), tokens) << qPrintable(text);
        withNames += names.isEmpty() ? 0 : 1;
        withTokens += tokens.isEmpty() ? 0 : 1;
    }
    EXPECT_GT(withNames, 5'000);
    EXPECT_GT(withTokens, 3'000);
}

TEST(VariablePatterns, substitutionAgreesWithALoopByHandForAnyText) {
    std::mt19937 random(32);
    int changed = 0;
    for (int round = 0; round < 20'000; ++round) {
        const QString body = randomText(random, 24);
        const QStringList variables = extractVariables(body);
        QHash<QString, QString> values;
        QString expected = body;
        for (const QString& name : variables) {
            const QString value = randomText(random, 4);
            if (round % 3 != 0)
                values.insert(name, value);
            const QString single = QStringLiteral("{%1}").arg(name);
            expected = replaceByHand(expected, single, values.value(name));
            expected = replaceByHand(expected, QStringLiteral("{%1}").arg(single), values.value(name));
        }
        ASSERT_EQ(substituteVariables(body, variables, values), expected) << qPrintable(body);
        changed += expected == body ? 0 : 1;
    }
    EXPECT_GT(changed, 3'000);
}

TEST(VariablePatterns, tokensLieInTheTextAscendAndDoNotOverlap) {
    std::mt19937 random(33);
    for (int round = 0; round < 5'000; ++round) {
        const QString text = randomText(random, 60);
        qsizetype end = 0;
        for (const VariableTokenMatch& match : variableTokenMatches(text)) {
            ASSERT_GE(match.location, end);
            end = match.location + match.length;
            ASSERT_LE(end, text.size());
            const QString piece = text.mid(match.location, match.length);
            ASSERT_TRUE(piece.startsWith(QLatin1Char('{')) && piece.endsWith(QLatin1Char('}'))) << qPrintable(piece);
            ASSERT_EQ(extractVariables(piece), QStringList(match.name));
        }
    }
}

} // namespace
} // namespace Quillstacks
