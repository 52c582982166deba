#include "interface/TextBlock.h"

#include <QFontMetricsF>
#include <QPainter>

#include <cmath>

namespace Quillstacks {
namespace {

constexpr QChar ellipsis(u'…');
/// More than any line can show; what comes after it need not be measured.
constexpr qsizetype longestLine = 4000;

/// The layout breaks lines at U+2028 only.
QString withLineSeparators(QString text) {
    text.replace(QStringLiteral("\r\n"), QString(QChar::LineSeparator));
    for (QChar& unit : text)
        if (unit == u'\n' || unit == u'\r' || unit == u'\u0085' || unit == QChar::ParagraphSeparator)
            unit = QChar::LineSeparator;
    return text;
}

QTextOption makeOption(Qt::Alignment alignment, QTextOption::WrapMode mode) {
    QTextOption option(alignment);
    option.setWrapMode(mode);
    option.setUseDesignMetrics(false);
    return option;
}

} // namespace

TextBlock::TextBlock(const QString& text, const Format& given, qreal width)
    : format(given), available(std::max(width, 1.0)), layout(withLineSeparators(text), given.font) {
    layout.setTextOption(makeOption(format.alignment, QTextOption::WrapAtWordBoundaryOrAnywhere));
    layout.setCacheEnabled(true);
    layOut();
}

void TextBlock::layOut() {
    const qsizetype length = layout.text().size();
    layout.beginLayout();
    while (true) {
        QTextLine line = layout.createLine();
        if (!line.isValid())
            break;
        line.setLineWidth(available);
        const qreal offset = std::floor((format.lineHeight - line.height()) / 2);
        line.setPosition({0, lines * format.lineHeight + offset});
        ++lines;
        widest = std::max(widest, line.naturalTextWidth());
        if (lines == format.maximumLines && line.textStart() + line.textLength() < length) {
            elideLastLine(line.textStart());
            break;
        }
    }
    layout.endLayout();
}

void TextBlock::elideLastLine(int start) {
    const QString& text = layout.text();
    const auto lineEnd = text.indexOf(QChar::LineSeparator, start);
    const qsizetype end = std::min(lineEnd < 0 ? text.size() : lineEnd, start + longestLine);
    QString rest = text.mid(start, end - start);
    const QFontMetricsF metrics(format.font);
    if (end < text.size())
        rest += ellipsis;
    lastLine = std::make_unique<QTextLayout>(metrics.elidedText(rest, Qt::ElideRight, available), format.font);
    lastLine->setTextOption(makeOption(format.alignment, QTextOption::NoWrap));
    lastLine->setCacheEnabled(true);
    lastLine->beginLayout();
    QTextLine line = lastLine->createLine();
    if (line.isValid()) {
        line.setLineWidth(available);
        line.setPosition({0, (lines - 1) * format.lineHeight + std::floor((format.lineHeight - line.height()) / 2)});
        widest = std::max(widest, line.naturalTextWidth());
    }
    lastLine->endLayout();
    truncated = true;
}

void TextBlock::draw(QPainter& painter, const QPointF& origin) const {
    const int whole = lastLine ? lines - 1 : lines;
    for (int i = 0; i < whole; ++i)
        layout.lineAt(i).draw(&painter, origin);
    if (lastLine)
        lastLine->draw(&painter, origin);
}

} // namespace Quillstacks
