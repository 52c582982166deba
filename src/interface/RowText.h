#pragma once

#include "interface/TextStyle.h"

#include <QColor>
#include <QFont>
#include <QHash>
#include <QRectF>
#include <QString>

#include <array>
#include <memory>

class QPainter;

namespace Quillstacks {

class TextBlock;

/// As much of a text as one line shows on any screen; an ellipsis stands for the rest. A name has no limit, and whoever
/// measures it reads all of it.
[[nodiscard]] QString startOfLine(const QString& text);

/// The one or two lines of a long text that a row shows: its words in one flow, white space of any kind (line ends
/// included) as one space. Neither question looks at more than the text's beginning, so a text of any size costs the
/// same.
class RowText final {
public:
    explicit RowText(const QFont& font);
    /// The one of a style's present font. Its table of advances is dear, so it is kept.
    [[nodiscard]] static const RowText& of(TextStyle style);

    /// How many lines the text takes at a width, at most `maximum`; found by adding up advances, without a layout.
    [[nodiscard]] int lineCount(const QString& text, qreal width, int maximum = 2) const;
    /// The text within `lines` lines of `lineHeight`; what is left over is an ellipsis at the end of the last one.
    [[nodiscard]] std::unique_ptr<TextBlock> layOut(const QString& text, qreal width, int lines, int lineHeight) const;
    [[nodiscard]] const QFont& font() const { return usedFont; }

private:
    using Page = std::array<float, 256>;
    [[nodiscard]] float measured(char32_t character) const;
    [[nodiscard]] float advance(char16_t unit) const;
    [[nodiscard]] float advance(char32_t character) const;
    [[nodiscard]] qsizetype shownLength(const QString& text, qreal width, int lines) const;

    QFont usedFont;
    std::array<float, 128> ascii{};
    /// By high byte and low byte; filled as characters are met, each of which is measured once.
    mutable std::array<std::unique_ptr<Page>, 256> pages;
    mutable QHash<char32_t, float> beyond; ///< what takes two units
};

/// A row's text as it was drawn last, so that a row that is drawn again, hovered or selected, does not lay out again.
class KeptRowText final {
public:
    KeptRowText();
    ~KeptRowText();
    Q_DISABLE_COPY_MOVE(KeptRowText)

    /// Draws the text from the top of `box`, within `lines` lines of `lineHeight` in the style's font.
    void draw(QPainter& painter, const QRectF& box, const QString& text, TextStyle style, const QColor& color,
              int lines, int lineHeight);

private:
    QString text;
    std::unique_ptr<TextBlock> block;
};

} // namespace Quillstacks
