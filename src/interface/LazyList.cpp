#include "interface/LazyList.h"

#include "interface/Accessible.h"
#include "interface/EdgeFade.h"
#include "interface/OverlayScrollBar.h"
#include "interface/Spring.h"
#include "interface/Theme.h"

#include <QScrollBar>

namespace Quillstacks {
namespace {

constexpr int followTime = 200; ///< milliseconds
constexpr int wheelStep = 24;

} // namespace

LazyList::LazyList(const QString& accessibleName, QWidget* parent) : QAbstractScrollArea(parent) {
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::StrongFocus);
    setAutoFillBackground(false);
    viewport()->setAutoFillBackground(false);
    viewport()->setMouseTracking(true);
    setAccessibleName(accessibleName);
    setAccessibleTraits(this, {QAccessible::List, {}, {}, {}});
    OverlayScrollBar::install(this);
    verticalScrollBar()->setSingleStep(wheelStep);
    animation.setDuration(followTime);
    animation.setEasingCurve(easeInOut());
    connect(&animation, &QVariantAnimation::valueChanged, this,
            [this](const QVariant& now) { verticalScrollBar()->setValue(now.toInt()); });
    slide.setDuration(followTime);
    slide.setEasingCurve(easeInOut());
    slide.setStartValue(0.0);
    slide.setEndValue(1.0);
    connect(&slide, &QVariantAnimation::valueChanged, this, &LazyList::layOut);
    connect(&slide, &QVariantAnimation::finished, this, [this] {
        settle();
        layOut();
    });
    connect(&Theme::shared(), &Theme::changed, this, &LazyList::reload);
}

LazyList::~LazyList() {
    // Rows die with the viewport, later than the members that their events would reach.
    for (const auto& [index, row] : shown)
        row.widget->removeEventFilter(this);
}

void LazyList::setSource(Source newSource) {
    source = std::move(newSource);
    reload();
}

void LazyList::setGap(int pixels) {
    gap = pixels;
    reload();
}

void LazyList::setPadding(const QMargins& margins) {
    padding = margins;
    reload();
}

void LazyList::setKeyHandler(std::function<bool(QKeyEvent*)> handler) {
    keyHandler = std::move(handler);
}

void LazyList::setBottomFade(std::optional<ColorRole> ground, int height) {
    delete fade;
    fade = ground ? new EdgeFade(*ground, this) : nullptr;
    fadeHeight = height;
    placeFade();
}

void LazyList::setBottomFadeColor(const QColor& color, int height) {
    if (!fade)
        setBottomFade(ColorRole::window, height);
    fade->setColor(color);
}

void LazyList::reload() {
    const std::vector<const void*> keysBefore = keys;
    measure();
    if (keys != keysBefore)
        settle();
    updateScrollBar();
    for (auto row = shown.begin(); row != shown.end();) {
        const bool keeps = row->first < count() && (source.kind ? source.kind(row->first) : 0) == row->second.kind;
        if (keeps)
            source.bind(row->second.widget, row->first);
        else
            release(row->second);
        row = keeps ? std::next(row) : shown.erase(row);
    }
    layOut();
}

void LazyList::rebind() {
    for (const auto& [index, row] : shown)
        source.bind(row.widget, index);
}

void LazyList::rebind(int index) {
    if (QWidget* widget = row(index))
        source.bind(widget, index);
}

void LazyList::measure() {
    const int rows = source.count ? source.count() : 0;
    measuredWidth = viewport()->width() - padding.left() - padding.right();
    tops.resize(static_cast<std::size_t>(rows) + 1);
    int top = padding.top();
    for (int i = 0; i < rows; ++i) {
        tops[static_cast<std::size_t>(i)] = top;
        top += source.height(i, measuredWidth) + (i + 1 < rows ? gap : 0);
    }
    tops.back() = top;
    keys.clear();
    for (int i = 0; source.key && i < rows; ++i)
        keys.push_back(source.key(i));
}

void LazyList::updateScrollBar() {
    const int page = viewport()->height();
    verticalScrollBar()->setPageStep(page);
    verticalScrollBar()->setRange(0, std::max(0, tops.back() + padding.bottom() - page));
}

QRect LazyList::rowGeometry(int index) const {
    if (index < 0 || index >= count())
        return {};
    const auto at = static_cast<std::size_t>(index);
    const int end = tops[at + 1] - (index + 1 < count() ? gap : 0);
    return {padding.left(), tops[at], measuredWidth, end - tops[at]};
}

int LazyList::firstAt(int y) const {
    const auto after = std::upper_bound(tops.begin(), tops.end() - 1, y);
    return std::max(0, static_cast<int>(after - tops.begin()) - 1);
}

int LazyList::indexAt(const QPoint& position) const {
    if (!travels.empty())
        return indexOf(viewport()->childAt(position));
    const QPoint inList = position + QPoint(0, verticalScrollBar()->value());
    const int index = firstAt(inList.y());
    return rowGeometry(index).contains(inList) ? index : -1;
}

std::pair<int, int> LazyList::visibleRange() const {
    if (count() == 0 || viewport()->height() <= 0)
        return {0, -1};
    const int top = verticalScrollBar()->value();
    int first = firstAt(top);
    const int last = firstAt(top + viewport()->height() - 1);
    if (rowGeometry(first).bottom() < top && first < last)
        ++first; // only its gap shows
    return {first, last};
}

QWidget* LazyList::row(int index) const {
    const auto found = shown.find(index);
    return found == shown.end() ? nullptr : found->second.widget;
}

int LazyList::indexOf(const QWidget* widget) const {
    for (const auto& [index, row] : shown)
        if (row.widget == widget || row.widget->isAncestorOf(widget))
            return index;
    return -1;
}

QWidget* LazyList::makeRow(int kind) {
    QWidget* widget = source.make(kind, viewport());
    widget->installEventFilter(this);
    AccessibleTraits traits{source.role ? source.role(kind) : QAccessible::ListItem, {}, {}, {}};
    if (traits.role != QAccessible::ListItem) {
        setAccessibleTraits(widget, std::move(traits));
        return widget;
    }
    traits.press = [this, widget] {
        if (const int index = indexOf(widget); index >= 0)
            Q_EMIT clicked(index, Qt::NoModifier);
    };
    traits.isSelected = [this, widget] {
        const int index = indexOf(widget);
        return index >= 0 && source.isSelected && source.isSelected(index);
    };
    setAccessibleTraits(widget, std::move(traits));
    return widget;
}

LazyList::Shown LazyList::take(int index) {
    const int kind = source.kind ? source.kind(index) : 0;
    auto& pool = spare[kind];
    QWidget* widget = pool.empty() ? makeRow(kind) : pool.back();
    if (!pool.empty())
        pool.pop_back();
    source.bind(widget, index);
    return {widget, kind};
}

void LazyList::release(const Shown& row) {
    // Else the keyboard would go to whatever follows in the order of the Tab key.
    if (row.widget->isAncestorOf(window()->focusWidget()))
        setFocus(Qt::OtherFocusReason);
    row.widget->hide();
    if (source.hover)
        source.hover(row.widget, false);
    spare[row.kind].push_back(row.widget);
}

void LazyList::layOut() {
    const std::vector<int> inSight = rowsInSight();
    for (auto row = shown.begin(); row != shown.end();) {
        const bool stays = std::binary_search(inSight.begin(), inSight.end(), row->first);
        if (!stays)
            release(row->second);
        row = stays ? std::next(row) : shown.erase(row);
    }
    for (const int index : inSight) {
        auto found = shown.find(index);
        if (found == shown.end())
            found = shown.emplace(index, take(index)).first;
        found->second.widget->setGeometry(placeOf(index));
        found->second.widget->show();
    }
    updateHover();
    placeFade();
}

void LazyList::placeFade() {
    if (!fade)
        return;
    fade->setGeometry(0, height() - fadeHeight, width(), fadeHeight);
    fade->setVisible(verticalScrollBar()->value() < verticalScrollBar()->maximum());
    fade->stackUnder(findChild<OverlayScrollBar*>());
}

int LazyList::clampedScroll(int value) const {
    return std::clamp(value, verticalScrollBar()->minimum(), verticalScrollBar()->maximum());
}

void LazyList::scrollTo(int value, bool animated) {
    const int target = clampedScroll(value);
    animation.stop();
    if (!animated || !isVisible() || Theme::shared().reducedMotion()) {
        verticalScrollBar()->setValue(target);
        return;
    }
    animation.setStartValue(verticalScrollBar()->value());
    animation.setEndValue(target);
    animation.start();
}

void LazyList::scrollToCenter(int index, bool animated) {
    if (index < 0 || index >= count())
        return;
    const QRect place = rowGeometry(index);
    scrollTo(place.top() + (place.height() - viewport()->height()) / 2, animated);
}

void LazyList::ensureVisible(int index) {
    if (index < 0 || index >= count())
        return;
    const QRect place = rowGeometry(index);
    const int top = index == 0 ? 0 : place.top() - gap;
    const int bottom =
        place.bottom() + 1 + (index + 1 == count() ? padding.bottom() : std::max(gap, fade ? fadeHeight : 0));
    const int now = verticalScrollBar()->value();
    if (top < now)
        scrollTo(top, false);
    else if (bottom > now + viewport()->height())
        scrollTo(std::min(top, bottom - viewport()->height()), false);
}

void LazyList::scrollToTop() {
    scrollTo(0, false);
}

void LazyList::resizeEvent(QResizeEvent*) {
    const int width = viewport()->width() - padding.left() - padding.right();
    if (width == measuredWidth) {
        updateScrollBar();
        layOut();
        return;
    }
    // The row at the top stays there, whatever the new heights of those above it.
    const int first = visibleRange().first;
    const int offset = verticalScrollBar()->value() - rowGeometry(first).top();
    const bool atTop = verticalScrollBar()->value() == 0;
    measure();
    updateScrollBar();
    if (!atTop)
        verticalScrollBar()->setValue(clampedScroll(rowGeometry(first).top() + offset));
    layOut();
}

void LazyList::scrollContentsBy(int, int) {
    layOut();
    Q_EMIT scrolled();
}

void LazyList::showEvent(QShowEvent* event) {
    QAbstractScrollArea::showEvent(event);
    layOut();
}

void LazyList::hideEvent(QHideEvent* event) {
    animation.stop();
    settle();
    setHovered(-1);
    QAbstractScrollArea::hideEvent(event);
}

} // namespace Quillstacks
