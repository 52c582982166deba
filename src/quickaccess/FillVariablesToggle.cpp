#include "FillVariablesToggle.h"

#include "interface/Drawing.h"
#include "interface/FocusRing.h"
#include "interface/Symbol.h"
#include "interface/TextStyle.h"
#include "interface/Theme.h"
#include "variables/VariablePreferences.h"

#include <QPainter>

#include <cmath>

namespace Quillstacks {

namespace {

constexpr int paddingX = 8;
constexpr int paddingY = 4;
constexpr int symbolSize = 15;
constexpr int symbolGap = 6;
constexpr qreal radius = 6;
constexpr qreal groundOpacity = 0.15;

} // namespace

FillVariablesToggle::FillVariablesToggle(QWidget* parent) : QAbstractButton(parent) {
    setObjectName(QStringLiteral("FillVariablesToggle"));
    setText(QStringLiteral("Fill variables"));
    setAccessibleName(text());
    setCheckable(true);
    setFocusPolicy(Qt::TabFocus);
    FocusRing::attach(this, radius);
    connect(&Theme::shared(), &Theme::changed, this, [this] {
        updateGeometry();
        update();
    });
    connect(this, &QAbstractButton::clicked, this, [] {
        const auto& preference = enableVariableSubstitutionPreference();
        preference.set(!preference.value());
    });
    enableVariableSubstitutionPreference().observe(this, [this] { refresh(); });
    refresh();
}

void FillVariablesToggle::refresh() {
    const bool on = enableVariableSubstitutionPreference().value();
    setChecked(on);
    setToolTip(on ? QStringLiteral("Variables will be filled in before copying")
                  : QStringLiteral("Variables will be copied as-is"));
    update();
}

QString FillVariablesToggle::symbol() const {
    return isChecked() ? QStringLiteral("curlybraces.square.fill") : QStringLiteral("curlybraces.square");
}

QSize FillVariablesToggle::sizeHint() const {
    const qreal label = QFontMetricsF(textFont(TextStyle::caption)).horizontalAdvance(text());
    return {2 * paddingX + symbolSize + symbolGap + static_cast<int>(std::ceil(label)),
            2 * paddingY + textLineHeight(TextStyle::caption)};
}

void FillVariablesToggle::paintEvent(QPaintEvent*) {
    const Theme& theme = Theme::shared();
    const QColor color = theme.color(isChecked() ? ColorRole::blue : ColorRole::text2);
    QPainter painter(this);
    if (isChecked())
        fillRounded(painter, rect(), radius, withOpacity(color, groundOpacity));
    Symbol::paint(painter, QRectF(paddingX, (height() - symbolSize) / 2.0, symbolSize, symbolSize), symbol(), color);
    painter.setFont(textFont(TextStyle::caption));
    painter.setPen(color);
    painter.drawText(rect().adjusted(paddingX + symbolSize + symbolGap, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter,
                     text());
}

} // namespace Quillstacks
