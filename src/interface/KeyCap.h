#pragma once

#include <QColor>
#include <QWidget>

namespace Quillstacks {

/// A key's name in fixed width, its glyphs (⇧ ⌘ ↩ …) in a font that has them, all on one baseline.
struct KeyText {
    /// The width of a text at a size in points.
    [[nodiscard]] static qreal width(const QString& text, qreal points);
    /// Draws it left-aligned and vertically centred in `box`.
    static void draw(QPainter& painter, const QRectF& box, const QString& text, qreal points, const QColor& color);
    /// The same in words, for assistive tools and tool tips: "⇧⌘Space" is "Ctrl+Shift+Space", "P or ⌘N" is
    /// "P or Ctrl+N".
    [[nodiscard]] static QString spelledOut(const QString& text);
};

/// A key as it is shown in hints: "↩", "esc".
class KeyCap final : public QWidget {
    Q_OBJECT
public:
    explicit KeyCap(const QString& keys, QWidget* parent = nullptr);
    /// The larger one of the help: 13.5 px, padding 8 x 4, radius 6.
    void setLarge(bool large);
    /// Above and below the text, in points.
    void setPaddingY(int points);
    void setKeys(const QString& keys);
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] qreal points() const;

    QString keys;
    bool large = false;
    int paddingY = 2;
};

} // namespace Quillstacks
