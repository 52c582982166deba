#include "hotkey/ShortcutField.h"

#include "hotkey/ShortcutDisplay.h"
#include "interface/Accessible.h"
#include "interface/Drawing.h"
#include "interface/KeyCap.h"
#include "interface/TextStyle.h"
#include "interface/Theme.h"

#include <QAccessible>
#include <QPainter>

#include <cmath>

namespace Quillstacks {

namespace {

constexpr int paddingX = 12;
constexpr int paddingY = 10;
constexpr qreal radius = 8;
constexpr qreal edgeWidth = 2;
constexpr qreal largePoints = 17;
constexpr int largeHeight = 46;
constexpr qreal restInk = 0.05;
constexpr qreal hoverInk = 0.07;
constexpr qreal recordingTint = 0.1;
constexpr qreal largeInk = 0.06;

} // namespace

ShortcutField::ShortcutField(ColorRole recordingColor, QWidget* parent)
    : QWidget(parent), tint(recordingColor), hover(this) {
    setObjectName(QStringLiteral("ShortcutField"));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setAccessibleTraits(this, {QAccessible::StaticText, {}, {}, {}});
    connect(&Theme::shared(), &Theme::changed, this, [this] {
        updateGeometry();
        update();
    });
}

void ShortcutField::setShortcut(quint64 modifiers, quint16 keyCode) {
    shown = shortcutDisplayString(modifiers, keyCode);
    const QString spelled = spelledShortcut(modifiers, keyCode);
    setToolTip(spelled);
    if (accessibleName() != spelled) {
        setAccessibleName(spelled);
        QAccessibleEvent renamed(this, QAccessible::NameChanged);
        QAccessible::updateAccessibility(&renamed);
    }
    updateGeometry();
    update();
}

void ShortcutField::setRecording(bool recording) {
    isRecording = recording;
    update();
}

void ShortcutField::setLarge(bool large) {
    isLarge = large;
    updateGeometry();
    update();
}

qreal ShortcutField::points() const {
    return isLarge ? largePoints : pixelSize(textFont(TextStyle::monoBody));
}

QSize ShortcutField::sizeHint() const {
    return {static_cast<int>(std::ceil(KeyText::width(shown, points()))) + 2 * paddingX,
            isLarge ? largeHeight : textLineHeight(TextStyle::body) + 2 * paddingY};
}

void ShortcutField::paintEvent(QPaintEvent*) {
    const Theme& theme = Theme::shared();
    const qreal rest = isLarge ? largeInk : restInk;
    QPainter painter(this);
    if (isRecording) {
        fillRounded(painter, rect(), radius, theme.tint(tint, recordingTint));
        strokeRounded(painter, rect(), radius, theme.color(tint), edgeWidth);
    } else {
        fillRounded(painter, rect(), radius, theme.ink(rest + (hoverInk - restInk) * hover.value()));
    }
    KeyText::draw(painter, rect().adjusted(paddingX, 0, -paddingX, 0), shown, points(),
                  theme.color(isRecording || isLarge ? ColorRole::text : ColorRole::text2));
}

void ShortcutField::enterEvent(QEnterEvent* event) {
    QWidget::enterEvent(event);
    hover.to(1);
}

void ShortcutField::leaveEvent(QEvent* event) {
    QWidget::leaveEvent(event);
    hover.to(0);
}

} // namespace Quillstacks
