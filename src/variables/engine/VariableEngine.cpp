#include "variables/engine/VariableEngine.h"

#include <QSet>

#include <unicode/regex.h>

#include <algorithm>
#include <limits>
#include <memory>

namespace Quillstacks {
namespace {

/// A pattern in its compiled form, which any number of threads may match with.
class Pattern final {
public:
    explicit Pattern(const char16_t* source) {
        UErrorCode status = U_ZERO_ERROR;
        UParseError position;
        compiled.reset(icu::RegexPattern::compile(icu::UnicodeString(source), 0, position, status));
        if (U_FAILURE(status))
            compiled.reset();
    }

    /// Calls `visit` with each match in the text, from left to right.
    template <typename Visit>
    void forEachMatch(const QString& text, Visit visit) const {
        UErrorCode status = U_ZERO_ERROR;
        const std::unique_ptr<icu::RegexMatcher> matcher(compiled ? compiled->matcher(status) : nullptr);
        if (!matcher)
            return;
        // By default a long run of white space behind a brace would exhaust the room for steps back.
        matcher->setStackLimit(0, status);
        constexpr qsizetype longest = std::numeric_limits<int32_t>::max();
        // Shares the units of the text; both outlive the matcher.
        const icu::UnicodeString units(false, reinterpret_cast<const char16_t*>(text.constData()),
                                       static_cast<int32_t>(std::min(text.size(), longest)));
        matcher->reset(units);
        while (matcher->find(status))
            visit(*matcher);
    }

private:
    std::unique_ptr<const icu::RegexPattern> compiled;
};

/// The text of a group; empty as well when the group took no part.
QString groupText(const QString& text, const icu::RegexMatcher& match, int32_t group) {
    UErrorCode status = U_ZERO_ERROR;
    const int32_t start = match.start(group, status);
    return start < 0 ? QString() : text.mid(start, match.end(group, status) - start);
}

void appendTokens(QList<VariableTokenMatch>& tokens, const Pattern& pattern, const QString& text) {
    pattern.forEachMatch(text, [&](const icu::RegexMatcher& match) {
        UErrorCode status = U_ZERO_ERROR;
        const int32_t start = match.start(status);
        tokens.append({start, match.end(status) - start, groupText(text, match, 1)});
    });
}

} // namespace

QStringList extractVariables(const QString& text) {
    static const Pattern detection(variableDetectionPattern);
    QSet<QString> names;
    detection.forEachMatch(text, [&](const icu::RegexMatcher& match) {
        for (const int32_t group : {1, 2})
            if (const QString name = groupText(text, match, group); !name.isEmpty())
                names.insert(name);
    });
    QStringList sorted(names.begin(), names.end());
    std::sort(sorted.begin(), sorted.end());
    return sorted;
}

QList<VariableTokenMatch> variableTokenMatches(const QString& text) {
    static const Pattern doubleBrace(doubleBracePattern);
    static const Pattern singleBrace(singleBracePattern);
    QList<VariableTokenMatch> candidates;
    appendTokens(candidates, doubleBrace, text);
    appendTokens(candidates, singleBrace, text);
    std::stable_sort(candidates.begin(), candidates.end(),
                     [](const auto& a, const auto& b) { return a.location < b.location; });

    QList<VariableTokenMatch> kept;
    qsizetype cursor = 0;
    for (const VariableTokenMatch& candidate : candidates) {
        if (candidate.location < cursor)
            continue;
        kept.append(candidate);
        cursor = candidate.location + candidate.length;
    }
    return kept;
}

QString substituteVariables(const QString& body, const QStringList& variables, const QHash<QString, QString>& values) {
    QString result = body;
    for (const QString& name : variables) {
        const QString value = values.value(name);
        const QString single = QLatin1Char('{') + name + QLatin1Char('}');
        // The single form first: it is a part of the double one, which thereby keeps a brace at each side.
        result.replace(single, value);
        result.replace(QLatin1Char('{') + single + QLatin1Char('}'), value);
    }
    return result;
}

} // namespace Quillstacks
