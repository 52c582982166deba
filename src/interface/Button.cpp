#include "interface/Button.h"

#include "interface/BusyIndicator.h"
#include "interface/Drawing.h"
#include "interface/FocusRing.h"
#include "interface/Symbol.h"
#include "interface/TextStyle.h"
#include "interface/Theme.h"

#include <QFontMetricsF>
#include <QKeyEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <utility>

namespace Quillstacks {
namespace {

constexpr qreal symbolGap = 7;
constexpr int indicatorSize = 16;
constexpr int smallestPadding = 6; ///< above and below the text together

QColor brightened(const QColor& color, qreal factor) {
    const auto channel = [factor](int value) { return std::min(255, static_cast<int>(std::lround(value * factor))); };
    return {channel(color.red()), channel(color.green()), channel(color.blue())};
}

} // namespace

Button::Button(const QString& text, Kind kind, QWidget* parent)
    : QAbstractButton(parent), currentKind(kind), hover(this), press(this) {
    // A click must not take the keyboard from the text field it belongs to.
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
    setAttribute(Qt::WA_Hover);
    setTitle(text);
    FocusRing::attach(this, radius());
    connect(this, &QAbstractButton::pressed, this, [this] { press.to(1); });
    connect(this, &QAbstractButton::released, this, [this] { press.to(0); });
    connect(&Theme::shared(), &Theme::changed, this, [this] {
        updateGeometry();
        update();
    });
}

void Button::setTitle(const QString& text) {
    if (text == this->text() && text == accessibleName())
        return;
    setText(text);
    setShortcut({}); // the toolkit makes one of an "&" in the text
    setAccessibleName(text);
    updateGeometry();
    placeIndicator();
    update();
}

void Button::setKind(Kind kind) {
    currentKind = kind;
    updateGeometry();
    update();
}

void Button::setSize(Size size) {
    currentSize = size;
    updateGeometry();
    update();
}

void Button::setSymbol(const QString& name, qreal points) {
    symbol = name;
    symbolSize = points;
    updateGeometry();
    update();
}

void Button::setBusy(bool busy) {
    setEnabled(!busy);
    if (busy == (indicator != nullptr))
        return;
    if (busy) {
        indicator = new BusyIndicator(accessibleName(), this, indicatorSize);
        indicator->setAttribute(Qt::WA_TransparentForMouseEvents);
        placeIndicator();
        indicator->show();
    } else {
        delete std::exchange(indicator, nullptr);
    }
    updateGeometry();
    update();
}

void Button::setTextColor(std::optional<ColorRole> role) {
    textColor = role;
    update();
}

void Button::setDefault(bool isDefault) {
    answersReturn = isDefault;
}

bool Button::pressDefault(const QWidget* within) {
    for (Button* button : within->findChildren<Button*>()) {
        if (!button->isDefault() || !button->isVisibleTo(within))
            continue;
        if (button->isEnabled())
            button->click();
        return button->isEnabled();
    }
    return false;
}

qreal Button::radius() const {
    switch (currentSize) {
    case Size::small:
        return 6;
    case Size::field:
        return 8;
    case Size::tall:
        return 9;
    default:
        return 7;
    }
}

QFont Button::textFont() const {
    switch (currentSize) {
    case Size::small:
        return Quillstacks::textFont(TextStyle::caption, QFont::Medium);
    case Size::tall:
        return absoluteFont(15, QFont::DemiBold);
    default:
        return Quillstacks::textFont(TextStyle::callout, QFont::Medium);
    }
}

int Button::sidePadding() const {
    if (currentSize == Size::small)
        return 11;
    if (currentSize == Size::large)
        return currentKind == Kind::prominent ? 17 : 19;
    return currentKind == Kind::prominent ? 17 : 13;
}

QSize Button::sizeHint() const {
    const qreal width = QFontMetricsF(textFont()).horizontalAdvance(text()) + 2 * sidePadding() + symbolRoom();
    // A large font of the desktop makes it taller than its size.
    const int line = QFontMetrics(textFont()).height() + smallestPadding;
    return {static_cast<int>(std::ceil(width)), std::max(static_cast<int>(currentSize), line)};
}

qreal Button::symbolRoom() const {
    if (symbol.isEmpty() && !indicator)
        return 0;
    return (indicator ? indicatorSize : symbolSize) + (text().isEmpty() ? 0 : symbolGap);
}

QString Button::shownText() const {
    const QFontMetricsF metrics(textFont());
    const qreal room = width() - 2.0 * std::min(sidePadding(), 8) - symbolRoom();
    const bool fits = metrics.horizontalAdvance(text()) <= room + 1;
    return fits ? text() : metrics.elidedText(text(), Qt::ElideRight, room);
}

qreal Button::contentLeft() const {
    const qreal textWidth = QFontMetricsF(textFont()).horizontalAdvance(shownText());
    return std::round((width() - symbolRoom() - textWidth) / 2);
}

void Button::placeIndicator() {
    if (!indicator)
        return;
    if (!accessibleName().isEmpty()) // a button may show the arc alone, and be named all the same
        indicator->setAccessibleName(accessibleName());
    indicator->setGeometry(static_cast<int>(contentLeft()), (height() - indicatorSize) / 2, indicatorSize,
                           indicatorSize);
}

QSize Button::minimumSizeHint() const {
    return sizeHint();
}

Button::Look Button::look() const {
    const Theme& theme = Theme::shared();
    const auto three = [this](const QColor& rest, const QColor& over, const QColor& down) {
        return mix(mix(rest, over, hover.value()), down, press.value());
    };
    const auto color = [&theme](ColorRole role) { return theme.color(role); };
    const QColor fill = color(ColorRole::redFill);
    Look look;
    switch (currentKind) {
    case Kind::prominent:
        look = {
            three(color(ColorRole::accentFill), color(ColorRole::accentFillHover), color(ColorRole::accentFillPress)),
            {},
            color(ColorRole::onAccent)};
        break;
    case Kind::destructiveFill:
        look = {three(fill, brightened(fill, 1.06), brightened(fill, 0.92)), {}, color(ColorRole::onAccent)};
        break;
    case Kind::borderless:
    case Kind::link:
        look = {three(theme.ink(0), color(ColorRole::fillHover), color(ColorRole::fillPress)),
                {},
                color(currentKind == Kind::link ? ColorRole::accent : ColorRole::text)};
        break;
    case Kind::bordered:
    case Kind::destructive:
        look = {three(color(ColorRole::control), color(ColorRole::controlHover), color(ColorRole::fillPress)),
                color(ColorRole::controlEdge),
                color(currentKind == Kind::destructive ? ColorRole::red : ColorRole::text)};
        break;
    }
    if (textColor)
        look.text = color(*textColor);
    return look;
}

void Button::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (!isEnabled())
        painter.setOpacity(0.5);
    const Look colors = look();
    drawBox(painter, rect(), radius(), colors.ground, colors.edge);

    const QFont font = textFont();
    const QFontMetricsF metrics(font);
    const qreal left = contentLeft();
    if (!symbol.isEmpty() && !indicator)
        Symbol::paint(painter, {left, (height() - symbolSize) / 2, symbolSize, symbolSize}, symbol, colors.text);
    painter.setPen(colors.text);
    painter.setFont(font);
    const qreal baseline = std::round((height() + metrics.capHeight()) / 2);
    painter.drawText(QPointF(left + symbolRoom(), baseline), shownText());
}

void Button::enterEvent(QEnterEvent* event) {
    QAbstractButton::enterEvent(event);
    if (isEnabled())
        hover.to(1);
}

void Button::leaveEvent(QEvent* event) {
    QAbstractButton::leaveEvent(event);
    hover.to(0);
}

void Button::keyPressEvent(QKeyEvent* event) {
    if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && !event->isAutoRepeat())
        click();
    else
        QAbstractButton::keyPressEvent(event);
}

void Button::changeEvent(QEvent* event) {
    if (event->type() == QEvent::EnabledChange && !isEnabled())
        hover.jump(0);
    QAbstractButton::changeEvent(event);
}

void Button::resizeEvent(QResizeEvent* event) {
    QAbstractButton::resizeEvent(event);
    placeIndicator();
}

} // namespace Quillstacks
