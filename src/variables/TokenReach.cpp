#include "TokenReach.h"

#include "variables/TokenDocument.h"

#include <QTextBlock>
#include <QTextDocument>

#include <algorithm>

namespace Quillstacks {
namespace {

enum class Kind {
    opening,
    closing,
    filling, ///< white space, line ends and what names consist of
    token,
    other
};

Kind kindOf(QChar unit) {
    if (unit == u'{')
        return Kind::opening;
    if (unit == u'}')
        return Kind::closing;
    const char16_t code = unit.unicode();
    const bool isName = (code >= u'a' && code <= u'z') || (code >= u'A' && code <= u'Z') ||
                        (code >= u'0' && code <= u'9') || code == u'_' || code == u'-' || code == u'.';
    return isName || unit.isSpace() ? Kind::filling : Kind::other;
}

/// The kinds of a document's characters, quick for neighbours.
class Kinds final {
public:
    explicit Kinds(const QTextDocument& given) : document(given) {}

    Kind at(int position) {
        if (!block.isValid() || position < block.position() || position >= block.position() + block.length()) {
            block = document.findBlock(position);
            text = block.text();
        }
        const int offset = position - block.position();
        if (offset >= text.size())
            return Kind::filling; // a separator
        if (text[offset] == QChar::ObjectReplacementCharacter && TokenDocument::isToken(document, position))
            return Kind::token;
        return kindOf(text[offset]);
    }

private:
    const QTextDocument& document;
    QTextBlock block;
    QString text;
};

/// Where the reach ends at one side. `next(i)` is the kind of the i-th character away from the change, of `count`;
/// the two kinds are the braces in the order in which they are met.
template <typename Next>
int extent(int count, Kind nearBrace, Kind farBrace, Next next) {
    int i = 0;
    const auto skip = [&](Kind kind) {
        while (i < count && next(i) == kind)
            ++i;
    };
    skip(nearBrace);
    const bool meetsToken = i < count && next(i) == Kind::token;
    if (meetsToken)
        ++i;
    else
        skip(Kind::filling);
    const int braces = i;
    skip(farBrace);
    if (meetsToken || i > braces)
        return i;
    // Nothing that could be completed begins here. The neighbour alone may be half of a line end.
    return std::min(count, 1);
}

} // namespace

TokenReach::TokenReach(const QTextDocument& document, int from, int to) : first(from), last(to) {
    Kinds kinds(document);
    first -= extent(from, Kind::closing, Kind::opening, [&](int i) { return kinds.at(from - 1 - i); });
    const int end = document.characterCount() - 1;
    last += extent(end - to, Kind::opening, Kind::closing, [&](int i) { return kinds.at(to + i); });
}

} // namespace Quillstacks
