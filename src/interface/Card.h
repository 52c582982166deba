#pragma once

#include "interface/ColorRole.h"

#include <QColor>
#include <QWidget>

#include <functional>

namespace Quillstacks {

/// A rounded ground for other widgets; give it a layout. By default a settings card: radius 12, padding 20 is the
/// layout's business.
class Card final : public QWidget {
    Q_OBJECT
public:
    /// Ground and edge as the theme has them when it paints; an invalid colour is not painted.
    struct Look {
        qreal radius = 12;
        std::function<QColor()> ground;
        std::function<QColor()> edge;
    };
    explicit Card(QWidget* parent = nullptr);
    Card(Look look, QWidget* parent = nullptr);

    void setLook(Look look);
    /// A ground of one role, with an edge of another.
    static Look box(ColorRole ground, ColorRole edge, qreal radius);
    /// A note: the colour at 5 %, edge at 20 %, radius 8.
    static Look tinted(ColorRole color, qreal ground, qreal edge, qreal radius);
    /// The ground of settings cards.
    static Look settings();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Look look;
};

} // namespace Quillstacks
