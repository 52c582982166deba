#pragma once

#include <QString>
#include <QTextCharFormat>

#include <functional>

class QTextBlock;
class QTextCursor;
class QTextDocument;

namespace Quillstacks {

/// Plain text in a QTextDocument, without loss. The toolkit's own reading turns CR, CR LF, U+2028, U+2029 and no-break
/// spaces into others, and keeps U+FDD0 and U+FDD1 for itself; here every QString comes back as it went in. The
/// separator before a paragraph is kept with the separator itself, the two non-characters are inline objects.
namespace PlainTextDocument {

enum Property {
    separatorProperty = QTextFormat::UserProperty + 1, ///< of a paragraph separator: its text, when not "\n"
    textProperty = QTextFormat::UserProperty + 2       ///< of an inline object: the text that it stands for
};

/// Replaces the whole text and clears the undo history. `format` is that of the new text.
void setText(QTextDocument& document, const QString& text, const QTextCharFormat& format = {});
[[nodiscard]] QString text(const QTextDocument& document);
/// The text between two positions of the document.
[[nodiscard]] QString text(const QTextDocument& document, int from, int to);
/// What is selected.
[[nodiscard]] QString selectedText(const QTextCursor& cursor);
/// Replaces the cursor's selection, as one step of undo. New text takes `format`.
void insert(QTextCursor& cursor, const QString& text, const QTextCharFormat& format);
/// The same in the format at the cursor.
void insert(QTextCursor& cursor, const QString& text);
/// Inserts one object of the document's that stands for `text`: one position, drawn by the handler of `objectType`.
void insertObject(QTextCursor& cursor, int objectType, const QString& text, QTextCharFormat format = {});
/// What separates a paragraph from the one before it; empty for the first.
[[nodiscard]] QString separatorBefore(const QTextBlock& block);
/// Calls `piece(positions, text)` for each run between two positions in turn: plain text, a separator or an object. A
/// piece whose text is longer than its positions is a single one.
void forEachPiece(const QTextDocument& document, int from, int to,
                  const std::function<void(int positions, const QString& text)>& piece);
/// A position of the document as one of its text, and back; they differ after objects and two-unit separators.
[[nodiscard]] qsizetype textPosition(const QTextDocument& document, int position);
[[nodiscard]] int documentPosition(const QTextDocument& document, qsizetype textPosition);

} // namespace PlainTextDocument
} // namespace Quillstacks
