#include "interface/ProgressBar.h"

#include "interface/Drawing.h"
#include "interface/Theme.h"

#include <QPainter>

#include <cmath>

namespace Quillstacks {
namespace {

constexpr int thickness = 6;
constexpr int usualLength = 240;
constexpr int steps = 1000;

} // namespace

ProgressBar::ProgressBar(const QString& accessibleName, QWidget* parent) : QProgressBar(parent) {
    setAccessibleName(accessibleName);
    setTextVisible(false);
    setRange(0, steps);
    setValue(0);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    connect(&Theme::shared(), &Theme::changed, this, qOverload<>(&QWidget::update));
}

void ProgressBar::setFraction(double fraction) {
    setValue(static_cast<int>(std::lround(std::clamp(fraction, 0.0, 1.0) * steps)));
}

QSize ProgressBar::sizeHint() const {
    return {usualLength, thickness};
}

QSize ProgressBar::minimumSizeHint() const {
    return {thickness, thickness};
}

void ProgressBar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const Theme& theme = Theme::shared();
    QRectF bar = rect();
    fillRounded(painter, bar, thickness / 2.0, theme.color(ColorRole::segmentTrack));
    const qreal length = bar.width() * value() / steps;
    if (length <= 0)
        return;
    // Never shorter than it is thick: a sliver is no bar.
    bar.setWidth(std::max<qreal>(length, thickness));
    if (layoutDirection() == Qt::RightToLeft)
        bar.moveRight(rect().width());
    fillRounded(painter, bar, thickness / 2.0, theme.color(ColorRole::accentFill));
}

} // namespace Quillstacks
