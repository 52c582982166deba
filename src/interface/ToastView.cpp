#include "interface/ToastView.h"

#include "interface/Accessible.h"
#include "interface/Drawing.h"
#include "interface/Shadow.h"
#include "interface/TextBlock.h"
#include "interface/TextStyle.h"
#include "interface/Theme.h"

#include <QPainter>

#include <cmath>

namespace Quillstacks {
namespace {

constexpr int paddingX = 20;
constexpr int paddingY = 12;
constexpr qreal radius = 12;
/// A title can be of any length; three lines tell enough of it.
constexpr int mostLines = 3;
constexpr qsizetype mostCharacters = 1000;

TextBlock layOut(const QString& text, qreal width) {
    return {text.left(mostCharacters), {absoluteFont(14, QFont::Medium), 20, mostLines, Qt::AlignHCenter}, width};
}

} // namespace

ToastView::ToastView(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("ToastView"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAccessibleTraits(this, {QAccessible::AlertMessage, {}, {}, {}});
    connect(&Theme::shared(), &Theme::changed, this, qOverload<>(&QWidget::update));
}

void ToastView::setMessage(const QString& message) {
    text = message;
    setAccessibleName(message);
    update();
}

void ToastView::setOpacity(qreal newOpacity) {
    opacity = newOpacity;
    update();
}

QSize ToastView::groundSize(int maximumWidth) const {
    const TextBlock block = layOut(text, std::max(1, maximumWidth - 2 * paddingX));
    const int lines = std::max(1, block.lineCount());
    return {static_cast<int>(std::ceil(block.naturalWidth())) + 2 * paddingX, lines * 20 + 2 * paddingY};
}

int ToastView::shadowMargin() {
    return shadowReach(ShadowKind::toast);
}

void ToastView::paintEvent(QPaintEvent*) {
    const Theme& theme = Theme::shared();
    const int margin = shadowMargin();
    const QRectF ground = QRectF(rect()).adjusted(margin, margin, -margin, -margin);
    QPainter painter(this);
    painter.setOpacity(opacity);
    paintShadow(painter, ground, radius, ShadowKind::toast);
    drawBox(painter, ground, radius, theme.material(Material::raised), theme.color(ColorRole::border));
    painter.setPen(theme.color(ColorRole::text));
    // The width was rounded up; with less the text might break.
    layOut(text, ground.width() - 2 * paddingX + 1).draw(painter, ground.topLeft() + QPointF(paddingX - 0.5, paddingY));
}

} // namespace Quillstacks
