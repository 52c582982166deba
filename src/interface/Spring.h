#pragma once

#include <QEasingCurve>

#include <chrono>

namespace Quillstacks {

/// A damped spring, given by response (seconds) and damping (below 1). The value runs from 0 to 1 and may overshoot:
/// f(t) = 1 - exp(-zwt) (cos vt + (zw / v) sin vt), w = 2 pi / response, v = w sqrt(1 - z z).
struct Spring {
    double response;
    double damping;
    std::chrono::milliseconds duration; ///< over which it is shown; then it stands at 1

    bool operator==(const Spring&) const = default;
    [[nodiscard]] double value(double seconds) const;
    /// value() over `duration` as an easing curve. One of the three of Springs.
    [[nodiscard]] QEasingCurve curve() const;
};

namespace Springs {
inline constexpr Spring banner{0.5, 0.8, std::chrono::milliseconds(580)};
inline constexpr Spring toastIn{0.4, 0.8, std::chrono::milliseconds(460)}; ///< also the banner's dismissal
inline constexpr Spring toastOut{0.3, 0.9, std::chrono::milliseconds(330)};
} // namespace Springs

/// The plain easings: (0.42, 0, 0.58, 1), (0, 0, 0.58, 1) and (0.42, 0, 1, 1).
[[nodiscard]] QEasingCurve easeInOut();
[[nodiscard]] QEasingCurve easeOut();
[[nodiscard]] QEasingCurve easeIn();

} // namespace Quillstacks
