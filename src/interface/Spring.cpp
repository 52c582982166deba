#include "interface/Spring.h"

#include <QPointF>

#include <array>
#include <cmath>
#include <numbers>

namespace Quillstacks {
namespace {

// A QEasingCurve takes a bare function, so each spring in use is one instance of this template.
template <const Spring& spring>
qreal progress(qreal fraction) {
    if (fraction >= 1)
        return 1;
    return spring.value(fraction * std::chrono::duration<double>(spring.duration).count());
}

QEasingCurve bezier(QPointF first, QPointF second) {
    QEasingCurve curve(QEasingCurve::BezierSpline);
    curve.addCubicBezierSegment(first, second, {1, 1});
    return curve;
}

} // namespace

double Spring::value(double seconds) const {
    if (seconds <= 0)
        return 0;
    const double w = 2 * std::numbers::pi / response;
    const double v = w * std::sqrt(1 - damping * damping);
    const double decay = damping * w;
    return 1 - std::exp(-decay * seconds) * (std::cos(v * seconds) + decay / v * std::sin(v * seconds));
}

QEasingCurve Spring::curve() const {
    QEasingCurve curve;
    if (*this == Springs::banner)
        curve.setCustomType(progress<Springs::banner>);
    else if (*this == Springs::toastIn)
        curve.setCustomType(progress<Springs::toastIn>);
    else if (*this == Springs::toastOut)
        curve.setCustomType(progress<Springs::toastOut>);
    else
        curve.setType(QEasingCurve::OutCubic);
    return curve;
}

QEasingCurve easeInOut() {
    return bezier({0.42, 0}, {0.58, 1});
}
QEasingCurve easeOut() {
    return bezier({0, 0}, {0.58, 1});
}
QEasingCurve easeIn() {
    return bezier({0.42, 0}, {1, 1});
}

} // namespace Quillstacks
