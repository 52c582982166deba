#pragma once

#include "interface/Symbol.h"

#include <QImage>
#include <QPainter>
#include <QWidget>

#include <cmath>
#include <tuple>

namespace Quillstacks {

/// Whether the symbol is painted at (x, y) of a picture, in its shape and colour.
inline bool showsSymbolAt(const QImage& picture, const QImage& symbol, int x, int y) {
    constexpr int tolerance = 24;
    for (int row = 0; row < symbol.height(); ++row)
        for (int column = 0; column < symbol.width(); ++column) {
            const QRgb wanted = symbol.pixel(column, row);
            const QRgb found = picture.pixel(x + column, y + row);
            if (std::abs(qAlpha(wanted) - qAlpha(found)) > tolerance)
                return false;
            if (qAlpha(wanted) == 255 && std::abs(qRed(wanted) - qRed(found)) +
                                                 std::abs(qGreen(wanted) - qGreen(found)) +
                                                 std::abs(qBlue(wanted) - qBlue(found)) >
                                             tolerance)
                return false;
        }
    return true;
}

/// Whether a widget without a ground paints this symbol somewhere, `size` pixels wide.
inline bool showsSymbol(QWidget& widget, const QString& name, int size, const QColor& color, qreal line = 0) {
    std::ignore = widget.grab(); // lays it out
    QImage picture(widget.size(), QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    widget.render(&picture, {}, {}, QWidget::DrawChildren);
    for (const QPointF offset : {QPointF(0, 0), QPointF(0, .5), QPointF(.5, 0), QPointF(.5, .5)}) {
        QImage symbol(size + 1, size + 1, QImage::Format_ARGB32_Premultiplied);
        symbol.fill(Qt::transparent);
        QPainter painter(&symbol);
        Symbol::paint(painter, QRectF(offset, QSizeF(size, size)), name, color, line);
        painter.end();
        // The last row and column are only for what lies at half a pixel.
        symbol = symbol.copy(0, 0, size, size);
        for (int y = 0; y + symbol.height() <= picture.height(); ++y)
            for (int x = 0; x + symbol.width() <= picture.width(); ++x)
                if (showsSymbolAt(picture, symbol, x, y))
                    return true;
    }
    return false;
}

} // namespace Quillstacks
