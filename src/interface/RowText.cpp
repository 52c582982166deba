#include "interface/RowText.h"

#include "interface/TextBlock.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <map>
#include <utility>

namespace Quillstacks {
namespace {

/// No row holds more.
constexpr qsizetype longestShown = 4000;
/// How much more than fits is laid out: lines end early where words break.
constexpr qreal surplus = 1.3;
constexpr float unmeasured = -1;

/// The beginning as a row shows it: white space of any kind and length, line ends included, as one space.
QString flattened(const QString& text, qsizetype length) {
    return text.left(length).simplified();
}

} // namespace

QString startOfLine(const QString& text) {
    if (text.size() <= longestShown)
        return text;
    const bool wouldCutPair = text[longestShown - 1].isHighSurrogate();
    return text.left(longestShown - (wouldCutPair ? 1 : 0)) + QChar(0x2026);
}

RowText::RowText(const QFont& font) : usedFont(font) {
    const QFontMetricsF metrics(font);
    for (char16_t unit = u' '; unit < ascii.size(); ++unit)
        ascii[unit] = static_cast<float>(metrics.horizontalAdvance(QChar(unit)));
    for (const char16_t space : {u'\t', u'\n', u'\v', u'\f', u'\r'})
        ascii[space] = ascii[u' '];
}

const RowText& RowText::of(TextStyle style) {
    static std::map<TextStyle, RowText> kept;
    const QFont font = textFont(style);
    const auto found = kept.try_emplace(style, font).first;
    if (found->second.font() != font)
        found->second = RowText(font);
    return found->second;
}

float RowText::measured(char32_t character) const {
    switch (QChar::category(character)) {
    case QChar::Mark_NonSpacing:
    case QChar::Mark_Enclosing:
    case QChar::Other_Format:
        return 0; // by itself a mark may be given a base that it doesn't have in a text
    default:
        break;
    }
    const QString alone = QString::fromUcs4(&character, 1);
    return static_cast<float>(std::max(QFontMetricsF(usedFont).horizontalAdvance(alone), 0.0));
}

float RowText::advance(char16_t unit) const {
    if (unit < ascii.size())
        return ascii[unit];
    auto& page = pages[unit >> 8];
    if (!page) {
        page = std::make_unique<Page>();
        page->fill(unmeasured);
    }
    float& kept = (*page)[unit & 0xFF];
    if (kept < 0)
        kept = measured(unit);
    return kept;
}

float RowText::advance(char32_t character) const {
    const auto kept = beyond.constFind(character);
    return kept != beyond.constEnd() ? *kept : *beyond.insert(character, measured(character));
}

// Character by character, of any script: a library is measured with every key, and shaping is too dear for that. What
// neighbours do to each other (kerning, joined letters) makes lines a little shorter than the sum, hardly ever longer.
int RowText::lineCount(const QString& text, qreal width, int maximum) const {
    int lines = 1;
    qreal used = 0;
    bool afterSpace = true; // white space at the beginning is not shown
    const qsizetype size = std::min(text.size(), longestShown);
    for (qsizetype i = 0; i < size && lines < maximum; ++i) {
        const QChar unit = text[i];
        if (unit.isSpace()) {
            used += std::exchange(afterSpace, true) ? 0 : ascii[u' '];
            continue;
        }
        afterSpace = false;
        if (unit.isHighSurrogate() && i + 1 < size && text[i + 1].isLowSurrogate()) {
            used += advance(QChar::surrogateToUcs4(unit, text[i + 1]));
            ++i;
        } else {
            used += advance(unit.unicode());
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

std::unique_ptr<TextBlock> RowText::layOut(const QString& text, qreal width, int lines, int lineHeight) const {
    const QString beginning = flattened(text, shownLength(text, width, lines));
    return std::make_unique<TextBlock>(beginning, TextBlock::Format{usedFont, lineHeight, lines, Qt::AlignLeft}, width);
}

KeptRowText::KeptRowText() = default;
KeptRowText::~KeptRowText() = default;

void KeptRowText::draw(QPainter& painter, const QRectF& box, const QString& newText, TextStyle style,
                       const QColor& color, int lines, int lineHeight) {
    const RowText& rowText = RowText::of(style);
    const TextBlock::Format format{rowText.font(), lineHeight, lines, Qt::AlignLeft};
    if (!block || text != newText || block->width() != std::max(box.width(), 1.0) || block->usedFormat() != format) {
        text = newText;
        block = rowText.layOut(text, box.width(), lines, lineHeight);
    }
    painter.setPen(color);
    block->draw(painter, box.topLeft());
}

} // namespace Quillstacks
