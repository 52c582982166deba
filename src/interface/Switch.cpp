#include "interface/Switch.h"

#include "interface/Accessible.h"
#include "interface/Drawing.h"
#include "interface/FocusRing.h"
#include "interface/Theme.h"

#include <QPainter>

namespace Quillstacks {
namespace {

constexpr qreal inset = 2;
constexpr qreal knob = 18;
constexpr qreal pressedKnob = 20;

} // namespace

Switch::Switch(const QString& accessibleName, QWidget* parent) : QAbstractButton(parent), on(this), press(this) {
    setCheckable(true);
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAccessibleName(accessibleName);
    setAccessibleTraits(this, {QAccessible::CheckBox, [this] { click(); }, [this] { return isChecked(); }, {}});
    FocusRing::attach(this, 11);
    connect(this, &QAbstractButton::toggled, this, [this](bool checked) {
        on.to(checked ? 1 : 0);
        announceState(this);
    });
    connect(this, &QAbstractButton::pressed, this, [this] { press.to(1); });
    connect(this, &QAbstractButton::released, this, [this] { press.to(0); });
    connect(&Theme::shared(), &Theme::changed, this, qOverload<>(&QWidget::update));
}

void Switch::paintEvent(QPaintEvent*) {
    const Theme& theme = Theme::shared();
    QPainter painter(this);
    if (!isEnabled())
        painter.setOpacity(0.5);
    const QRectF track = rect();
    fillRounded(painter, track, track.height() / 2,
                mix(theme.color(ColorRole::switchOff), theme.color(ColorRole::accentFill), on.value()));
    const qreal width = knob + (pressedKnob - knob) * press.value();
    const qreal travel = track.width() - 2 * inset - width;
    const qreal progress = layoutDirection() == Qt::LeftToRight ? on.value() : 1 - on.value();
    const QRectF place(inset + travel * progress, inset, width, knob);
    fillRounded(painter, place.translated(0, 1), knob / 2, withOpacity(Qt::black, theme.isDark() ? .22 : .14));
    fillRounded(painter, place, knob / 2, Qt::white);
}

} // namespace Quillstacks
