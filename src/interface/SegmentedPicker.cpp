#include "interface/SegmentedPicker.h"

#include "interface/Accessible.h"
#include "interface/Drawing.h"
#include "interface/Theme.h"
#include "SegmentButton.h"

#include <QPainter>

namespace Quillstacks {

SegmentedPicker::SegmentedPicker(const QString& accessibleName, std::vector<Segment> segments, QWidget* parent)
    : QWidget(parent) {
    setAccessibleName(accessibleName);
    setAccessibleTraits(this, {QAccessible::Grouping, {}, {}, {}});
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    for (std::size_t i = 0; i < segments.size(); ++i) {
        auto* button = new SegmentButton(segments[i], this);
        connect(button, &QAbstractButton::clicked, this, [this, i] { choose(static_cast<int>(i)); });
        buttons.push_back(button);
    }
    setSelection(0);
    connect(&Theme::shared(), &Theme::changed, this, [this] {
        updateGeometry();
        update();
    });
}

void SegmentedPicker::setSelection(int index) {
    if (index < 0 || index >= static_cast<int>(buttons.size()))
        return;
    const bool hadFocus = buttons[static_cast<std::size_t>(selected)]->hasFocus();
    selected = index;
    for (std::size_t i = 0; i < buttons.size(); ++i) {
        const bool isSelected = static_cast<int>(i) == index;
        buttons[i]->setChecked(isSelected);
        // One stop for Tab; the arrows move within.
        buttons[i]->setFocusPolicy(isSelected ? Qt::TabFocus : Qt::NoFocus);
        announceState(buttons[i]);
    }
    if (hadFocus)
        buttons[static_cast<std::size_t>(index)]->setFocus(Qt::TabFocusReason);
}

void SegmentedPicker::choose(int index) {
    if (index == selected)
        return;
    setSelection(index);
    Q_EMIT selectionChanged(index);
}

void SegmentedPicker::move(int step) {
    choose(std::clamp(selected + step, 0, static_cast<int>(buttons.size()) - 1));
}

void SegmentedPicker::setSize(Size size) {
    currentSize = size;
    updateGeometry();
    placeButtons();
    update();
}

int SegmentedPicker::inset() const {
    return currentSize == Size::regular ? 2 : 3;
}

QSize SegmentedPicker::sizeHint() const {
    int widest = 0;
    for (const SegmentButton* button : buttons)
        widest = std::max(widest, button->sizeHint().width());
    return {widest * static_cast<int>(buttons.size()) + 2 * inset(), static_cast<int>(currentSize)};
}

void SegmentedPicker::resizeEvent(QResizeEvent*) {
    placeButtons();
}

void SegmentedPicker::placeButtons() {
    const int count = static_cast<int>(buttons.size());
    const QRect inner = rect().adjusted(inset(), inset(), -inset(), -inset());
    for (int i = 0; i < count; ++i) {
        const int left = inner.left() + inner.width() * i / count;
        const int right = inner.left() + inner.width() * (i + 1) / count;
        const int place = layoutDirection() == Qt::LeftToRight ? left : inner.left() + inner.right() - right + 1;
        buttons[static_cast<std::size_t>(i)]->setGeometry(place, inner.top(), right - left, inner.height());
    }
}

void SegmentedPicker::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (!isEnabled())
        painter.setOpacity(0.5);
    fillRounded(painter, rect(), currentSize == Size::regular ? 8 : 9, Theme::shared().color(ColorRole::segmentTrack));
}

} // namespace Quillstacks
