#pragma once

#include <QFont>
#include <QString>
#include <QTextLayout>

#include <memory>

class QPainter;

namespace Quillstacks {

/// A plain text laid out in lines of a fixed height. Every line end of Unicode begins a new line.
class TextBlock final {
public:
    struct Format {
        QFont font;
        int lineHeight = 0;   ///< logical pixels
        int maximumLines = 0; ///< 0 for any number; the last one ends in an ellipsis when text is left over
        Qt::Alignment alignment = Qt::AlignLeft;

        bool operator==(const Format&) const = default;
    };
    /// Width in logical pixels; a line never gets wider.
    TextBlock(const QString& text, const Format& format, qreal width);
    Q_DISABLE_COPY_MOVE(TextBlock)

    [[nodiscard]] qreal width() const { return available; }
    /// Of the widest line.
    [[nodiscard]] qreal naturalWidth() const { return widest; }
    [[nodiscard]] int lineCount() const { return lines; }
    [[nodiscard]] int height() const { return lines * format.lineHeight; }
    [[nodiscard]] bool isTruncated() const { return truncated; }
    [[nodiscard]] const Format& usedFormat() const { return format; }
    /// With the painter's pen; the first line's top left corner is at `origin`.
    void draw(QPainter& painter, const QPointF& origin) const;

private:
    void layOut();
    void elideLastLine(int start);

    Format format;
    qreal available = 0;
    qreal widest = 0;
    int lines = 0;
    bool truncated = false;
    QTextLayout layout;
    std::unique_ptr<QTextLayout> lastLine; ///< the elided one
};

} // namespace Quillstacks
