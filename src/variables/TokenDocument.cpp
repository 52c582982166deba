#include "variables/TokenDocument.h"

#include "interface/PlainTextDocument.h"
#include "TokenReach.h"
#include "variables/engine/VariableEngine.h"

#include <QSizeF>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

#include <algorithm>
#include <limits>
#include <numeric>
#include <utility>
#include <vector>

namespace Quillstacks::TokenDocument {
namespace {

/// A position of the document that stands for more than one unit of the plain text: a token or a CR LF.
struct Wide {
    qsizetype at = 0;
    qsizetype length = 0;

    friend bool operator==(const Wide&, const Wide&) = default;
};
using WidePieces = std::vector<Wide>;

constexpr qsizetype lineEndLength = 2;
constexpr qsizetype longText = 200'000; ///< units that take their time to be laid out

WidePieces shown(const QTextDocument& document, int from, int to) {
    WidePieces result;
    qsizetype at = 0;
    PlainTextDocument::forEachPiece(document, from, to, [&](int length, const QString& text) {
        if (text.size() != length)
            result.push_back({at, text.size()});
        at += text.size();
    });
    return result;
}

void appendLineEnds(WidePieces& pieces, const QString& text, qsizetype from, qsizetype to) {
    const QLatin1String lineEnd("\r\n");
    for (qsizetype at = text.indexOf(lineEnd, from); at >= 0 && at < to; at = text.indexOf(lineEnd, at + lineEndLength))
        pieces.push_back({at, lineEndLength});
}

WidePieces wanted(const QString& text, const QList<VariableTokenMatch>& tokens) {
    WidePieces result;
    qsizetype cursor = 0;
    for (const VariableTokenMatch& token : tokens) {
        appendLineEnds(result, text, cursor, token.location);
        result.push_back({token.location, token.length});
        cursor = token.location + token.length;
    }
    appendLineEnds(result, text, cursor, text.size());
    return result;
}

/// How many positions the plain text takes up to `at`.
int positions(const WidePieces& pieces, qsizetype at) {
    qsizetype result = at;
    for (const Wide& piece : pieces)
        if (piece.at < at)
            result -= piece.length - 1;
    return static_cast<int>(result);
}

struct Span {
    qsizetype from = 0;
    qsizetype to = 0;
};

/// The part of the plain text where two lists of pieces differ.
Span difference(const WidePieces& a, const WidePieces& b) {
    const std::size_t shorter = std::min(a.size(), b.size());
    std::size_t first = 0;
    while (first < shorter && a[first] == b[first])
        ++first;
    std::size_t last = 0;
    while (last < shorter - first && a[a.size() - 1 - last] == b[b.size() - 1 - last])
        ++last;
    Span span{std::numeric_limits<qsizetype>::max(), 0};
    for (const WidePieces* pieces : {&a, &b}) {
        for (std::size_t i = first; i + last < pieces->size(); ++i) {
            span.from = std::min(span.from, (*pieces)[i].at);
            span.to = std::max(span.to, (*pieces)[i].at + (*pieces)[i].length);
        }
    }
    return span;
}

void insert(QTextCursor& cursor, const AttributedText& text, const QTextCharFormat& format) {
    for (const AttributedRun& run : text) {
        if (!run.attachment) {
            PlainTextDocument::insert(cursor, run.characters, format);
            continue;
        }
        QTextCharFormat token = format;
        token.setProperty(nameProperty, run.attachment->name);
        PlainTextDocument::insertObject(cursor, objectType, run.attachment->originalFormat, token);
    }
}

AttributedText part(const QString& text, const QList<VariableTokenMatch>& tokens, const Span& span) {
    QList<VariableTokenMatch> inside;
    for (const VariableTokenMatch& token : tokens)
        if (token.location >= span.from && token.location < span.to)
            inside.append({token.location - span.from, token.length, token.name});
    return attributedText(text.mid(span.from, span.to - span.from), inside);
}

struct BlockPlace {
    int position;
    int length;          ///< without the separator behind
    qsizetype separator; ///< units of the one before
};

/// Calls `visit(place)` for each block in turn, until it gives false.
template <typename Visit>
void forEachBlock(const QTextDocument& document, Visit visit) {
    // Most blocks share one format: asking each for its properties, or for its position, would be slow.
    int knownFormat = -1;
    qsizetype separator = 0;
    BlockPlace place{};
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        place.length = block.length() - 1;
        if (place.position > 0) {
            if (const int format = block.charFormatIndex(); std::exchange(knownFormat, format) != format)
                separator = PlainTextDocument::separatorBefore(block).size();
            place.separator = separator;
        }
        if (!visit(place))
            return;
        place.position += block.length();
    }
}

qsizetype unitsOf(const AttributedText& text) {
    return std::accumulate(text.begin(), text.end(), qsizetype(0),
                           [](qsizetype sum, const AttributedRun& run) { return sum + run.characters.size(); });
}

/// The toolkit lays out what has changed at once, but a text of another page size bit by bit, as it comes into view.
class LateLayout final {
    Q_DISABLE_COPY_MOVE(LateLayout)
public:
    LateLayout(QTextDocument& given, bool isOn) : document(given), page(given.pageSize()), isUsed(isOn) {
        if (isUsed)
            document.setPageSize(QSizeF(0, 0)); // lays out nothing
    }
    ~LateLayout() {
        if (isUsed)
            document.setPageSize(page);
    }

private:
    QTextDocument& document;
    QSizeF page;
    bool isUsed;
};

QTextCharFormat formatAt(const QTextDocument& document, int position) {
    const QTextBlock block = document.findBlock(position);
    for (auto it = block.begin(); !it.atEnd(); ++it)
        if (it.fragment().contains(position))
            return it.fragment().charFormat();
    return {};
}

} // namespace

void build(QTextDocument& document, const AttributedText& text) {
    const LateLayout late(document, unitsOf(text) > longText);
    QTextCursor cursor(&document);
    cursor.beginEditBlock();
    cursor.select(QTextCursor::Document);
    cursor.removeSelectedText();
    cursor.setBlockCharFormat({});
    insert(cursor, text, {});
    cursor.endEditBlock();
}

AttributedText contents(const QTextDocument& document) {
    return contents(document, 0, document.characterCount() - 1);
}

AttributedText contents(const QTextDocument& document, int from, int to) {
    AttributedText result;
    int position = from;
    PlainTextDocument::forEachPiece(document, from, to, [&](int length, const QString& text) {
        if (isToken(document, position))
            result.append({QString(QChar::ObjectReplacementCharacter),
                           VariableTokenAttachment{formatAt(document, position).stringProperty(nameProperty), text}});
        else if (result.isEmpty() || result.last().attachment)
            result.append({text, {}});
        else
            result.last().characters += text;
        position += length;
    });
    return result;
}

bool rebuild(QTextDocument& document, int from, int to) {
    const int end = document.characterCount() - 1;
    from = std::clamp(from, 0, end);
    to = std::clamp(to, from, end);
    const TokenReach reach(document, from, to);
    const QString text = PlainTextDocument::text(document, reach.from(), reach.to());
    const QList<VariableTokenMatch> tokens = variableTokenMatches(text);
    const WidePieces present = shown(document, reach.from(), reach.to());
    const WidePieces right = wanted(text, tokens);
    if (present == right)
        return false;
    const Span span = difference(present, right);
    QTextCursor cursor(&document);
    cursor.beginEditBlock();
    cursor.setPosition(reach.from() + positions(present, span.from));
    cursor.setPosition(reach.from() + positions(present, span.to), QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
    insert(cursor, part(text, tokens, span), {});
    cursor.endEditBlock();
    return true;
}

void replacePlain(QTextDocument& document, qsizetype location, qsizetype length, const QString& text) {
    const int from = PlainTextDocument::documentPosition(document, location);
    const qsizetype textFrom = PlainTextDocument::textPosition(document, from);
    int to = PlainTextDocument::documentPosition(document, location + length);
    qsizetype textTo = PlainTextDocument::textPosition(document, to);
    if (textTo < location + length)
        textTo = PlainTextDocument::textPosition(document, ++to);
    const QString old = PlainTextDocument::text(document, from, to);
    const QString whole = old.left(location - textFrom) + text + old.mid(location + length - textFrom);
    QTextCursor cursor(&document);
    cursor.beginEditBlock();
    cursor.setPosition(from);
    cursor.setPosition(to, QTextCursor::KeepAnchor);
    PlainTextDocument::insert(cursor, whole, {});
    cursor.endEditBlock();
    rebuild(document, from, cursor.position());
}

bool isToken(const QTextDocument& document, int position) {
    if (document.characterAt(position) != QChar::ObjectReplacementCharacter)
        return false;
    return formatAt(document, position).objectType() == objectType;
}

qsizetype unitsAt(const QTextDocument& document, int position) {
    qsizetype result = position;
    forEachBlock(document, [&](const BlockPlace& block) {
        if (block.position > position)
            return false;
        if (block.position > 0)
            result += block.separator - 1;
        return true;
    });
    return result;
}

int positionAt(const QTextDocument& document, qsizetype units) {
    int result = document.characterCount() - 1;
    qsizetype before = 0; // units up to the block's beginning
    forEachBlock(document, [&](const BlockPlace& block) {
        before += block.separator;
        if (units <= before + block.length) {
            result = block.position + static_cast<int>(std::max<qsizetype>(units - before, 0));
            return false;
        }
        before += block.length;
        return true;
    });
    // A caret between two surrogates would tear a character apart with the next key.
    if (result > 0 && document.characterAt(result).isLowSurrogate() &&
        document.characterAt(result - 1).isHighSurrogate())
        ++result;
    return result;
}

} // namespace Quillstacks::TokenDocument
