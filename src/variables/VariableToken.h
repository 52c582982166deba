#pragma once

#include <QList>
#include <QString>

#include <optional>

namespace Quillstacks {

struct VariableTokenMatch;

/// A placeholder as one inline object of a text.
struct VariableTokenAttachment {
    QString name;           ///< without braces and spaces
    QString originalFormat; ///< the whole placeholder as it stood in the text

    friend bool operator==(const VariableTokenAttachment&, const VariableTokenAttachment&) = default;
};

/// Characters of equal attributes; with an attachment exactly one, U+FFFC.
struct AttributedRun {
    QString characters;
    std::optional<VariableTokenAttachment> attachment;

    friend bool operator==(const AttributedRun&, const AttributedRun&) = default;
};

/// Text as the editor shows it. Every token is a run of its own.
using AttributedText = QList<AttributedRun>;

/// From plain text: every placeholder becomes a token.
[[nodiscard]] AttributedText attributedText(const QString& text);
/// The same with the placeholders given: in ascending order, none overlapping another.
[[nodiscard]] AttributedText attributedText(const QString& text, const QList<VariableTokenMatch>& matches);
/// And back, with each placeholder's spaces and braces. A U+FFFC without an attachment is a character like any other.
[[nodiscard]] QString plainText(const AttributedText& text);

} // namespace Quillstacks
