#pragma once

#include "interface/ColorRole.h"

#include <QWidget>

namespace Quillstacks {

/// A line of one pixel, from edge to edge.
class Divider final : public QWidget {
    Q_OBJECT
public:
    explicit Divider(Qt::Orientation orientation = Qt::Horizontal, ColorRole role = ColorRole::separator,
                     QWidget* parent = nullptr);
    [[nodiscard]] QSize sizeHint() const override { return {1, 1}; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    ColorRole role;
};

} // namespace Quillstacks
