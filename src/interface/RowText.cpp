#include "interface/RowText.h"

#include "interface/TextBlock.h"

#include <QFontMetricsF>
#include <QPainter>

namespace Quillstacks {
namespace {

/// No row holds more.
constexpr qsizetype longestShown = 4000;
/// How much more than fits is laid out: lines end early where words break.
constexpr qreal surplus = 1.3;

bool isLineEnd(QChar unit) {
    return unit == u'\n' || unit == u'\r' || unit == u'\u0085' || unit == QChar::LineSeparator ||
           unit == QChar::ParagraphSeparator;
}

} // namespace

RowText::RowText(const QFont& font) : textFont(font) {
    const QFontMetricsF metrics(font);
    for (char16_t unit = u' '; unit < ascii.size(); ++unit)
        ascii[unit] = static_cast<float>(metrics.horizontalAdvance(QChar(unit)));
    ascii[u'\t'] = ascii[u' '];
}

qreal RowText::advance(const QString& text, qsizetype at, qsizetype length) const {
    // Beyond ASCII a glyph depends on its neighbours, so a run is measured as a whole.
    return QFontMetricsF(textFont).horizontalAdvance(text.mid(at, length));
}

int RowText::lineCount(const QString& text, qreal width, int maximum) const {
    int lines = 1;
    qreal used = 0;
    for (qsizetype i = 0; i < text.size() && lines < maximum;) {
        const QChar unit = text[i];
        if (isLineEnd(unit)) {
            ++lines;
            used = 0;
            i += unit == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n' ? 2 : 1;
            continue;
        }
        if (unit.unicode() < ascii.size()) {
            used += ascii[unit.unicode()];
            ++i;
        } else {
            qsizetype end = i + 1;
            while (end < text.size() && end - i < 64 && text[end].unicode() >= ascii.size() && !isLineEnd(text[end]))
                ++end;
            used += advance(text, i, end - i);
            i = end;
        }
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
    for (qsizetype i = 0; i < end; ++i) {
        const char16_t unit = text[i].unicode();
        // Others than ASCII may be of any width, none included, so they count for nothing.
        used += unit < ascii.size() ? ascii[unit] : 0;
        if (used > enough)
            return i + 1;
    }
    return end;
}

void RowText::draw(QPainter& painter, const QRectF& box, const QString& text, const QColor& color, int lines,
                   int lineHeight) const {
    QString beginning = text.left(shownLength(text, box.width(), lines));
    beginning.replace(u'\t', u' ');
    painter.setPen(color);
    TextBlock(beginning, {textFont, lineHeight, lines, Qt::AlignLeft}, box.width()).draw(painter, box.topLeft());
}

} // namespace Quillstacks
