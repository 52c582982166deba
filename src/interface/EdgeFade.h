#pragma once

#include "interface/ColorRole.h"

#include <QWidget>

namespace Quillstacks {

/// A strip that lets what lies under it fade into a ground. It takes no mouse.
class EdgeFade final : public QWidget {
    Q_OBJECT
public:
    /// The edge at which everything has faded into the ground.
    enum class Edge { top, bottom };
    EdgeFade(ColorRole ground, QWidget* parent, Edge edge = Edge::bottom);
    /// In place of the role, for grounds that are a mixture.
    void setColor(const QColor& color);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    ColorRole ground;
    Edge edge;
    QColor fixedColor;
};

} // namespace Quillstacks
