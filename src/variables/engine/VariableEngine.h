#pragma once

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

namespace Quillstacks {

/// The syntax of placeholders, in ICU's dialect of regular expressions, without options. A name is a run of ASCII
/// letters, digits, '_', '-' and '.'. The three don't agree in every corner, and aren't meant to.
///
/// | Text            | detection | double brace | single brace |
/// |-----------------|-----------|--------------|--------------|
/// | `{a}` `{ a }`   | a         |              | a            |
/// | `{{a}}`         | a         | a            |              |
/// | `{{a}` `{a}}`   | a         |              |              |
/// | `{{{a}}}`       | a         | a (inner)    |              |
/// | `"a": 1`        | a         |              |              |

/// For the list of variables of a text: group 1 is a name in braces, group 2 a name in a quoted key.
inline constexpr char16_t variableDetectionPattern[] =
    uR"~(\{\{?\s*([a-zA-Z0-9_\-\.]+)\s*\}?\}|\"([a-zA-Z0-9_\-\.]+)\"\s*:)~";
/// For the tokens of the editor: group 1 is the name.
inline constexpr char16_t doubleBracePattern[] = uR"~(\{\{\s*([a-zA-Z0-9_\-.]+)\s*\}\})~";
/// For the tokens of the editor: group 1 is the name.
inline constexpr char16_t singleBracePattern[] = uR"~((?<!\{)\{\s*([a-zA-Z0-9_\-.]+)\s*\}(?!\}))~";

/// A placeholder in a text; location and length, braces included, count UTF-16 units.
struct VariableTokenMatch {
    qsizetype location = 0;
    qsizetype length = 0;
    QString name;

    friend bool operator==(const VariableTokenMatch&, const VariableTokenMatch&) = default;
};

// All three are pure and total: they never fail, and a text without placeholders gives an empty list or itself.

/// The names that variableDetectionPattern finds, each once, ascending by character code ("B", "a").
[[nodiscard]] QStringList extractVariables(const QString& text);

/// The placeholders that become tokens in the editor, ascending by location, none overlapping another.
[[nodiscard]] QList<VariableTokenMatch> variableTokenMatches(const QString& text);

/// Puts for each name, in the order given, its value (empty when it has none) in the place of every `{name}`, and
/// then of every `{{name}}`. The order is meant: a double placeholder keeps one brace at each side, and a value may
/// hold the placeholder of a later name. Placeholders with spaces inside stay.
[[nodiscard]] QString substituteVariables(const QString& body, const QStringList& variables,
                                          const QHash<QString, QString>& values);

} // namespace Quillstacks
