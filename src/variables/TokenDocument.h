#pragma once

#include "variables/VariableToken.h"

#include <QTextFormat>

class QTextDocument;

namespace Quillstacks {

/// Attributed text in a QTextDocument. What a document holds follows from its plain text alone, whichever way it came
/// about: build() makes it from nothing, rebuild() puts right what an edit may have changed.
///
/// "Units" are UTF-16 units of the attributed text: a token is one, a CR LF two. Positions are the document's, where a
/// CR LF is one as well.
namespace TokenDocument {

inline constexpr int objectType = QTextFormat::UserObject + 1;
/// Of a token's format: its name. The placeholder is the PlainTextDocument::textProperty.
inline constexpr int nameProperty = QTextFormat::UserProperty + 3;

/// Replaces the whole contents.
void build(QTextDocument& document, const AttributedText& text);
/// The contents between two positions, neighbouring plain characters in one run.
[[nodiscard]] AttributedText contents(const QTextDocument& document, int from, int to);
[[nodiscard]] AttributedText contents(const QTextDocument& document);
/// Makes the document what build() would make of its plain text, after an edit whose new text lies between the
/// positions `from` and `to` (equal after a deletion). It touches only what differs. True when something did.
bool rebuild(QTextDocument& document, int from, int to);
/// Replaces `length` units of the plain text, whose tokens may begin or end within, and rebuilds.
void replacePlain(QTextDocument& document, qsizetype location, qsizetype length, const QString& text);
/// An inline object of any kind that stands for a placeholder.
[[nodiscard]] bool isToken(const QTextDocument& document, int position);
[[nodiscard]] qsizetype unitsAt(const QTextDocument& document, int position);
/// The first position that a caret may take at these units or after them; the end where there are fewer.
[[nodiscard]] int positionAt(const QTextDocument& document, qsizetype units);

} // namespace TokenDocument
} // namespace Quillstacks
