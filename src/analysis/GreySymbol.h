#pragma once

#include <QColor>
#include <QWidget>

namespace Quillstacks {

/// A symbol that is only looked at, in one grey whatever the scheme.
class GreySymbol final : public QWidget {
    Q_OBJECT
public:
    /// `points` wide and high. A line width of 0 is the symbol's own.
    GreySymbol(QString symbol, int points, const QColor& color, qreal lineWidth = 0, QWidget* parent = nullptr);

    [[nodiscard]] const QColor& color() const { return grey; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString symbol;
    QColor grey;
    qreal lineWidth;
};

} // namespace Quillstacks
