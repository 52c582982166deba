#pragma once

#include "interface/ColorRole.h"

#include <QWidget>

namespace Quillstacks {

/// A symbol that is only looked at, in a colour of the look.
class SymbolImage final : public QWidget {
    Q_OBJECT
public:
    /// `points` wide and high.
    SymbolImage(QString symbol, int points, ColorRole role, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString symbol;
    ColorRole role;
};

} // namespace Quillstacks
