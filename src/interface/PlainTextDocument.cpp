#include "interface/PlainTextDocument.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextFragment>

namespace Quillstacks::PlainTextDocument {
namespace {

constexpr char16_t frameStart = 0xFDD0;
constexpr char16_t frameEnd = 0xFDD1;

bool isReserved(QChar unit) {
    return unit == frameStart || unit == frameEnd;
}

/// The length of the separator that begins at `at`; 0 where none does. U+2028 ends a line, not a paragraph, and stays
/// in the text as it is; so does U+0085.
qsizetype separatorLength(const QString& text, qsizetype at) {
    const QChar unit = text[at];
    if (unit == u'\r')
        return at + 1 < text.size() && text[at + 1] == u'\n' ? 2 : 1;
    return unit == u'\n' || unit == QChar::ParagraphSeparator ? 1 : 0;
}

QTextCharFormat separatorFormat(QTextCharFormat format, const QString& separator) {
    if (separator == QLatin1String("\n"))
        format.clearProperty(separatorProperty);
    else
        format.setProperty(separatorProperty, separator);
    return format;
}

void insertPieces(QTextCursor& cursor, const QString& text, const QTextCharFormat& given) {
    QTextCharFormat format = given;
    format.clearProperty(separatorProperty);
    format.clearProperty(textProperty);
    if (format.objectType() != QTextFormat::NoObject)
        format.setObjectType(QTextFormat::NoObject);
    qsizetype start = 0;
    const auto flush = [&](qsizetype end) {
        if (end > start)
            cursor.insertText(text.mid(start, end - start), format);
    };
    for (qsizetype i = 0; i < text.size();) {
        if (const qsizetype length = separatorLength(text, i); length > 0) {
            flush(i);
            // The format of a block's beginning is that of the separator before it: it goes when the separator goes.
            cursor.insertBlock(cursor.blockFormat(), separatorFormat(format, text.mid(i, length)));
            start = i += length;
        } else if (isReserved(text[i])) {
            flush(i);
            insertObject(cursor, QTextFormat::UserObject, QString(text[i]), format);
            start = ++i;
        } else {
            ++i;
        }
    }
    flush(text.size());
}

/// An object's position keeps its format when a character is typed behind it, but for the type of object.
bool standsForText(const QTextCharFormat& format) {
    return format.objectType() != QTextFormat::NoObject && format.hasProperty(textProperty);
}

/// The pieces of a block that holds objects, between two positions within.
template <typename Piece>
void forEachFragment(const QTextBlock& block, const QString& whole, int start, int end, const Piece& piece) {
    for (auto it = block.begin(); !it.atEnd(); ++it) {
        const QTextFragment fragment = it.fragment();
        const int first = std::max(fragment.position() - block.position(), start);
        const int last = std::min(fragment.position() + fragment.length() - block.position(), end);
        if (first >= last)
            continue;
        const QTextCharFormat format = fragment.charFormat();
        if (!standsForText(format)) {
            piece(last - first, whole.mid(first, last - first));
            continue;
        }
        for (int i = first; i < last; ++i)
            piece(1, whole[i] == QChar::ObjectReplacementCharacter ? format.stringProperty(textProperty)
                                                                   : QString(whole[i]));
    }
}

} // namespace

void setText(QTextDocument& document, const QString& text, const QTextCharFormat& format) {
    const bool undo = document.isUndoRedoEnabled();
    document.setUndoRedoEnabled(false);
    QTextCursor cursor(&document);
    cursor.beginEditBlock();
    cursor.select(QTextCursor::Document);
    cursor.removeSelectedText();
    cursor.setBlockCharFormat(format);
    insertPieces(cursor, text, format);
    cursor.endEditBlock();
    document.setUndoRedoEnabled(undo);
}

QString text(const QTextDocument& document) {
    return text(document, 0, document.characterCount() - 1);
}

QString text(const QTextDocument& document, int from, int to) {
    QString result;
    result.reserve(to - from);
    forEachPiece(document, from, to, [&result](int, const QString& part) { result += part; });
    return result;
}

QString selectedText(const QTextCursor& cursor) {
    return cursor.hasSelection() ? text(*cursor.document(), cursor.selectionStart(), cursor.selectionEnd()) : QString();
}

void insert(QTextCursor& cursor, const QString& text, const QTextCharFormat& format) {
    cursor.beginEditBlock();
    cursor.removeSelectedText();
    insertPieces(cursor, text, format);
    cursor.endEditBlock();
}

void insert(QTextCursor& cursor, const QString& text) {
    insert(cursor, text, cursor.charFormat());
}

void insertObject(QTextCursor& cursor, int objectType, const QString& text, QTextCharFormat format) {
    format.setObjectType(objectType);
    format.setProperty(textProperty, text);
    format.clearProperty(separatorProperty);
    cursor.insertText(QString(QChar::ObjectReplacementCharacter), format);
}

void forEachPiece(const QTextDocument& document, int from, int to,
                  const std::function<void(int positions, const QString& text)>& piece) {
    QTextBlock block = document.findBlock(from);
    // Counted along: asking each block for its position is slow.
    for (int position = block.position(); block.isValid() && position <= to; block = block.next()) {
        if (position > from)
            piece(1, separatorBefore(block));
        const QString whole = block.text();
        const int start = std::max(from - position, 0);
        const int end = std::min(to - position, static_cast<int>(whole.size()));
        position += block.length();
        if (start >= end)
            continue;
        if (whole.indexOf(QChar::ObjectReplacementCharacter, start) < 0)
            piece(end - start, whole.mid(start, end - start));
        else
            forEachFragment(block, whole, start, end, piece);
    }
}

QString separatorBefore(const QTextBlock& block) {
    if (block.position() == 0)
        return {};
    const QVariant kept = block.charFormat().property(separatorProperty);
    return kept.isValid() ? kept.toString() : QStringLiteral("\n");
}

qsizetype textPosition(const QTextDocument& document, int position) {
    qsizetype result = 0;
    forEachPiece(document, 0, position, [&result](int, const QString& part) { result += part.size(); });
    return result;
}

int documentPosition(const QTextDocument& document, qsizetype textPosition) {
    int position = 0;
    qsizetype left = textPosition;
    forEachPiece(document, 0, document.characterCount() - 1, [&](int length, const QString& part) {
        if (left <= 0)
            return;
        if (left >= part.size())
            position += length;
        else if (part.size() == length)
            position += static_cast<int>(left);
        left -= part.size();
    });
    return position;
}

} // namespace Quillstacks::PlainTextDocument
