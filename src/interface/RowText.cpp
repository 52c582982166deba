#include "interface/RowText.h"

#include "interface/TextBlock.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <utility>

namespace Quillstacks {
namespace {

/// No row holds more.
constexpr qsizetype longestShown = 4000;
/// How much more than fits is laid out: lines end early where words break.
constexpr qreal surplus = 1.3;
/// What is measured at once of a text beyond ASCII.
constexpr qsizetype longestRun = 64;

/// The beginning as a row shows it: white space of any kind and length, line ends included, as one space.
QString flattened(const QString& text, qsizetype length) {
    return text.left(length).simplified();
}

} // namespace

RowText::RowText(const QFont& font) : textFont(font) {
    const QFontMetricsF metrics(font);
    for (char16_t unit = u' '; unit < ascii.size(); ++unit)
        ascii[unit] = static_cast<float>(metrics.horizontalAdvance(QChar(unit)));
    for (const char16_t space : {u'\t', u'\n', u'\v', u'\f', u'\r'})
        ascii[space] = ascii[u' '];
}

qreal RowText::advance(const QString& text, qsizetype at, qsizetype length) const {
    // Beyond ASCII a glyph depends on its neighbours, so a run is measured as a whole.
    return QFontMetricsF(textFont).horizontalAdvance(text.mid(at, length));
}

int RowText::lineCount(const QString& text, qreal width, int maximum) const {
    int lines = 1;
    qreal used = 0;
    bool afterSpace = true; // white space at the beginning is not shown
    const qsizetype size = std::min(text.size(), longestShown);
    for (qsizetype i = 0; i < size && lines < maximum;) {
        if (text[i].isSpace()) {
            used += std::exchange(afterSpace, true) ? 0 : ascii[u' '];
            ++i;
            continue;
        }
        afterSpace = false;
        qsizetype end = i + 1;
        if (text[i].unicode() < ascii.size()) {
            used += ascii[text[i].unicode()];
        } else {
            while (end < size && end - i < longestRun && text[end].unicode() >= ascii.size() && !text[end].isSpace())
                ++end;
            used += advance(text, i, end - i);
        }
        i = end;
        if (used > width) {
            ++lines;
            used = 0;
        }
    }
    return lines;
}

qsizetype RowText::shownLength(const QString& text, qreal width, int lines) const {
    const qreal enough = width * lines * surplus + 100;
    const qsizetype end = std::min(text.size(), longestShown);
    qreal used = 0;
    bool afterSpace = true;
    for (qsizetype i = 0; i < end; ++i) {
        const char16_t unit = text[i].unicode();
        const bool space = text[i].isSpace();
        // Others than ASCII may be of any width, none included, so they count for nothing.
        used += unit < ascii.size() && !(space && afterSpace) ? ascii[unit] : 0;
        afterSpace = space;
        if (used > enough)
            return i + 1;
    }
    return end;
}

void RowText::draw(QPainter& painter, const QRectF& box, const QString& text, const QColor& color, int lines,
                   int lineHeight) const {
    const QString beginning = flattened(text, shownLength(text, box.width(), lines));
    painter.setPen(color);
    TextBlock(beginning, {textFont, lineHeight, lines, Qt::AlignLeft}, box.width()).draw(painter, box.topLeft());
}

} // namespace Quillstacks
