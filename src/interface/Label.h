#pragma once

#include "interface/ColorRole.h"
#include "interface/TextStyle.h"

#include <QLabel>

#include <memory>
#include <optional>

namespace Quillstacks {

class TextBlock;

/// A text in one of the text styles. It reads as static text to assistive tools. One line by default; with more, it
/// wraps. What does not fit ends in an ellipsis on the last line. Plain text only, any content.
class Label final : public QLabel {
    Q_OBJECT
public:
    explicit Label(const QString& text = {}, TextStyle style = TextStyle::body, ColorRole role = ColorRole::text,
                   QWidget* parent = nullptr);
    ~Label() override;
    Q_DISABLE_COPY_MOVE(Label)

    /// Use these in place of QLabel's own; they repaint and lay out as needed.
    void setText(const QString& text);
    void setTextStyle(TextStyle style, int weight = 0);
    /// A size that does not follow the desktop's, in points.
    void setAbsoluteFont(qreal points, int weight, qreal lineHeight);
    void setColorRole(ColorRole role);
    /// In place of the role; an empty one gives the role back.
    void setColor(std::optional<QColor> color);
    /// 0 for as many as it takes.
    void setMaximumLines(int lines);
    void setTextAlignment(Qt::Alignment alignment);
    /// Text that can be selected with mouse and keyboard, and copied.
    void setSelectable(bool selectable);

    [[nodiscard]] bool isSelectable() const;
    [[nodiscard]] int lineHeight() const;
    /// Whether the present size cuts the text.
    [[nodiscard]] bool isTruncated() const;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    [[nodiscard]] bool hasHeightForWidth() const override;
    [[nodiscard]] int heightForWidth(int width) const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void refresh();
    [[nodiscard]] const TextBlock& block(qreal width) const;
    [[nodiscard]] QColor currentColor() const;
    [[nodiscard]] QFont currentFont() const;

    TextStyle style;
    int weight = 0;
    ColorRole role;
    std::optional<QColor> fixedColor;
    std::optional<QFont> fixedFont;
    qreal fixedLineHeight = 0;
    int maximumLines = 1;
    mutable std::unique_ptr<TextBlock> laidOut;
};

} // namespace Quillstacks
