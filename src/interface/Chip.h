#pragma once

#include "interface/Transition.h"

#include <QAbstractButton>
#include <QColor>
#include <QList>
#include <QStringList>

#include <utility>

namespace Quillstacks {

/// How the name of a tag is shown: a dot in the tag's colour and its name. For rows that paint themselves.
struct ChipStyle {
    int dot = 6, gap = 6, paddingX = 8, paddingY = 3;
    qreal radius = 6;
    bool small = false; ///< caption 2 in place of caption

    static constexpr ChipStyle row() { return {}; }
    static constexpr ChipStyle quickAccess() { return {5, 5, 6, 2, 4, true}; }
    static constexpr ChipStyle selector() { return {6, 6, 10, 5, 6, false}; }

    [[nodiscard]] int height() const;
    [[nodiscard]] int width(const QString& name) const;
    /// Paints at `box`, eliding a name that is too long. `strong` takes the primary colour for the name.
    void paint(QPainter& painter, const QRectF& box, const QString& name, const QColor& dotColor, bool strong,
               const QColor& ground) const;
    /// The widths of chips that together fill at most `width`: each its own, or, where there is too little room, the
    /// widest ones shortened to the same width. None is left out.
    [[nodiscard]] QList<qreal> widths(const QStringList& names, qreal width, int spacing) const;
    /// Paints one chip after another from `origin`, `spacing` apart, with these widths.
    void paintRow(QPainter& painter, const QPointF& origin, qreal width, int spacing,
                  const QList<std::pair<QString, QColor>>& tags, bool strong = false) const;
};

/// A chip as a control that is switched on and off (QAbstractButton::toggled).
class Chip final : public QAbstractButton {
    Q_OBJECT
public:
    Chip(const QString& name, const QColor& dotColor, QWidget* parent = nullptr);
    void setTag(const QString& name, const QColor& dotColor);
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    QColor dotColor;
    Transition hover;
};

} // namespace Quillstacks
