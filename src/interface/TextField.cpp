#include "interface/TextField.h"

#include "FieldStyle.h"
#include "interface/Drawing.h"
#include "interface/FocusRing.h"
#include "interface/Symbol.h"
#include "interface/Theme.h"

#include <QPainter>
#include <QTimerEvent>

#include <limits>

namespace Quillstacks {
namespace {

constexpr qreal radius = 7;
constexpr int symbolGap = 8;
/// The toolkit's own margin on both sides of the text.
constexpr int innerMargin = 2;
constexpr int smallestPadding = 8; ///< above and below the text together
constexpr qreal caretWidth = 1.5;

int fieldHeight(TextField::Variant variant) {
    switch (variant) {
    case TextField::Variant::framed:
        return 32;
    case TextField::Variant::title:
        return 40;
    case TextField::Variant::value:
        return 38;
    case TextField::Variant::plain:
        break;
    }
    return 0;
}

int sidePadding(TextField::Variant variant) {
    if (variant == TextField::Variant::plain)
        return 0;
    return variant == TextField::Variant::value ? 13 : 11;
}

} // namespace

TextField::TextField(const QString& placeholder, Variant kind, QWidget* parent)
    : QLineEdit(parent), variant(kind), style(kind == Variant::title ? TextStyle::title3 : TextStyle::body),
      weight(kind == Variant::title ? QFont::DemiBold : 0), hover(this) {
    setStyle(fieldStyle());
    setFrame(false);
    setMaxLength(std::numeric_limits<int>::max());
    setPlaceholderText(placeholder);
    setAccessibleName(placeholder);
    if (kind != Variant::plain)
        FocusRing::attach(this, radius, FocusRing::Manner::field);
    connect(this, &QLineEdit::cursorPositionChanged, this, &TextField::restartCaret);
    connect(this, &QLineEdit::textChanged, this, &TextField::restartCaret);
    connect(&Theme::shared(), &Theme::changed, this, &TextField::refresh);
    refresh();
}

void TextField::setSymbol(const QString& name, qreal points) {
    symbol = name;
    symbolSize = points;
    refresh();
}

void TextField::setTextStyle(TextStyle newStyle, int newWeight) {
    style = newStyle;
    weight = newWeight;
    refresh();
}

void TextField::refresh() {
    refreshing = true;
    const Theme& theme = Theme::shared();
    QPalette colors = theme.palette();
    for (const auto role : {QPalette::Text, QPalette::PlaceholderText})
        colors.setColor(QPalette::Disabled, role, withOpacity(colors.color(QPalette::Active, role), .5));
    setPalette(colors);
    setFont(textFont(style, weight));
    const int padding = std::max(0, sidePadding(variant) - innerMargin);
    const int leading = symbol.isEmpty() ? 0 : static_cast<int>(symbolSize) + symbolGap;
    setTextMargins(padding + leading, 0, padding, 0);
    updateGeometry();
    update();
    refreshing = false;
}

QSize TextField::sizeHint() const {
    // A large font of the desktop makes it taller.
    const int line = textLineHeight(style) + (variant == Variant::plain ? 0 : smallestPadding);
    return {200, std::max(fieldHeight(variant), line)};
}

QSize TextField::minimumSizeHint() const {
    return {60, sizeHint().height()};
}

void TextField::paintFrame(QPainter& painter) const {
    const Theme& theme = Theme::shared();
    if (!isEnabled())
        painter.setOpacity(0.5);
    if (variant != Variant::plain) {
        const QColor edge = mix(theme.color(ColorRole::border), theme.color(ColorRole::borderHover), hover.value());
        drawBox(painter, rect(), radius, theme.color(ColorRole::field), hasFocus() ? QColor() : edge);
    }
    Symbol::paint(painter, QRectF(sidePadding(variant), (height() - symbolSize) / 2, symbolSize, symbolSize), symbol,
                  theme.color(ColorRole::text2));
}

void TextField::paintEvent(QPaintEvent* event) {
    {
        QPainter painter(this);
        paintFrame(painter);
    }
    QLineEdit::paintEvent(event);
    if (!caretShown || !hasFocus() || isReadOnly())
        return;
    const QRectF place = cursorRect();
    QPainter painter(this);
    // The toolkit's rectangle begins 5 px before the caret.
    painter.fillRect(QRectF(place.left() + 5 - caretWidth / 2, place.top(), caretWidth, place.height()),
                     Theme::shared().color(ColorRole::accent));
}

void TextField::restartCaret() {
    if (!hasFocus())
        return;
    caretShown = true;
    if (const int interval = caretInterval(); interval > 0)
        caretTimer.start(interval, this);
    update();
}

void TextField::timerEvent(QTimerEvent* event) {
    if (event->timerId() != caretTimer.timerId()) {
        QLineEdit::timerEvent(event);
        return;
    }
    caretShown = !caretShown;
    update();
}

void TextField::enterEvent(QEnterEvent* event) {
    QLineEdit::enterEvent(event);
    hover.to(isEnabled() ? 1 : 0);
}

void TextField::leaveEvent(QEvent* event) {
    QLineEdit::leaveEvent(event);
    hover.to(0);
}

void TextField::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    restartCaret();
    Q_EMIT focused();
}

void TextField::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    caretTimer.stop();
    caretShown = false;
    update();
    Q_EMIT unfocused();
}

// The toolkit would start its own caret's blinking anew, and draw that place again after every key. Ours is drawn here.
void TextField::keyReleaseEvent(QKeyEvent* /*event*/) {}

void TextField::changeEvent(QEvent* event) {
    QLineEdit::changeEvent(event);
    if (event->type() == QEvent::EnabledChange && !refreshing)
        update();
}

} // namespace Quillstacks
