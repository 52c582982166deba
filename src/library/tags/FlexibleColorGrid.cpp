#include "FlexibleColorGrid.h"

#include "ColorSwatch.h"
#include "interface/Accessible.h"
#include "TagPalette.h"

#include <algorithm>

namespace Quillstacks {
namespace {

constexpr int columns = TagPalette::columns;
constexpr int columnGap = 10;
constexpr int rowGap = 12;

} // namespace

FlexibleColorGrid::FlexibleColorGrid(QStringList colors, QWidget* parent)
    : QWidget(parent), offered(std::move(colors)) {
    setObjectName(QStringLiteral("FlexibleColorGrid"));
    setAccessibleName(QStringLiteral("Color"));
    setAccessibleTraits(this, {QAccessible::Grouping, {}, {}, {}});
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    for (int i = 0; i < offered.size(); ++i) {
        auto* swatch = new ColorSwatch(offered[i], this);
        connect(swatch, &QAbstractButton::clicked, this, [this, i] { choose(i); });
        connect(swatch, &ColorSwatch::arrowPressed, this, [this, i](int right, int down) { step(i, right, down); });
        swatches.push_back(swatch);
    }
    setSelection({});
}

void FlexibleColorGrid::setSelection(const QString& colorHex) {
    selected = colorHex;
    const qsizetype at = offered.indexOf(selected);
    for (int i = 0; i < offered.size(); ++i) {
        ColorSwatch* swatch = swatches[static_cast<std::size_t>(i)];
        const bool announces = swatch->isChecked() != (i == at);
        swatch->setChecked(i == at);
        // One stop for Tab; the arrows move within.
        swatch->setFocusPolicy(i == std::max<qsizetype>(at, 0) ? Qt::TabFocus : Qt::NoFocus);
        if (announces)
            announceState(swatch);
    }
}

void FlexibleColorGrid::choose(int index) {
    setSelection(offered[index]);
    Q_EMIT selectionChanged(selected);
}

void FlexibleColorGrid::step(int from, int right, int down) {
    if (layoutDirection() == Qt::RightToLeft)
        right = -right;
    const int to = from + right + columns * down;
    if (to < 0 || to >= offered.size())
        return;
    choose(to);
    swatches[static_cast<std::size_t>(to)]->setFocus(Qt::TabFocusReason);
}

int FlexibleColorGrid::rows() const {
    return (static_cast<int>(offered.size()) + columns - 1) / columns;
}

QSize FlexibleColorGrid::sizeHint() const {
    return {columns * ColorSwatch::side + (columns - 1) * columnGap,
            rows() * ColorSwatch::side + (rows() - 1) * rowGap};
}

QSize FlexibleColorGrid::minimumSizeHint() const {
    return sizeHint();
}

void FlexibleColorGrid::resizeEvent(QResizeEvent*) {
    const qreal columnWidth = (width() - (columns - 1) * columnGap) / static_cast<qreal>(columns);
    for (int i = 0; i < offered.size(); ++i) {
        const qreal center = (i % columns) * (columnWidth + columnGap) + columnWidth / 2;
        const int left = qRound(center - ColorSwatch::side / 2.0);
        const int top = i / columns * (ColorSwatch::side + rowGap);
        swatches[static_cast<std::size_t>(i)]->move(
            layoutDirection() == Qt::RightToLeft ? width() - left - ColorSwatch::side : left, top);
    }
}

} // namespace Quillstacks
