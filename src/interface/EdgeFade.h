#pragma once

#include "interface/ColorRole.h"

#include <QWidget>

namespace Quillstacks {

/// A strip that lets what lies under it fade into a ground. It takes no mouse.
class EdgeFade final : public QWidget {
    Q_OBJECT
public:
    EdgeFade(ColorRole ground, QWidget* parent);
    /// In place of the role, for grounds that are a mixture.
    void setColor(const QColor& color);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    ColorRole ground;
    QColor fixedColor;
};

} // namespace Quillstacks
