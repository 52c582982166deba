#include "interface/StatusLine.h"

#include "interface/Accessible.h"
#include "interface/Label.h"
#include "interface/SymbolImage.h"
#include "interface/Theme.h"

#include <QAccessible>
#include <QGraphicsOpacityEffect>
#include <QHBoxLayout>

#include <cmath>

namespace Quillstacks {
namespace {

constexpr int symbolSize = 16;
constexpr int symbolGap = 7;
constexpr int distance = 8; ///< of the move in
constexpr int milliseconds = 200;

} // namespace

StatusLine::StatusLine(int space, QWidget* parent)
    : QWidget(parent), gap(space), label(new Label({}, TextStyle::subheadline, ColorRole::text, this)),
      presence(this, milliseconds) {
    setObjectName(QStringLiteral("StatusLine"));
    setAccessibleTraits(this, {QAccessible::AlertMessage, {}, {}, {}});
    label->setMaximumLines(0);
    auto* row = new QHBoxLayout(this);
    row->setSpacing(symbolGap);
    row->addWidget(label, 1);
    auto* opacity = new QGraphicsOpacityEffect(this);
    setGraphicsEffect(opacity);
    showProgress(0);
    connect(&presence, &Transition::valueChanged, this, &StatusLine::showProgress);
    hide();
}

void StatusLine::say(const QString& symbol, const QString& text, ColorRole role) {
    symbolName = symbol;
    shownText = text;
    delete image;
    image = new SymbolImage(symbol, symbolSize, role, this);
    image->setFixedHeight(std::max(symbolSize, label->lineHeight())); // in the middle of the first line
    auto* row = static_cast<QHBoxLayout*>(layout());
    row->insertWidget(0, image, 0, Qt::AlignTop);
    label->setText(text);
    label->setColorRole(role);
    setAccessibleName(text);
    show();
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
    presence.to(1);
}

void StatusLine::clear() {
    symbolName.clear();
    shownText.clear();
    presence.to(0);
    // One that had hardly begun to come has nothing to fade.
    if (presence.value() <= 0)
        hide();
}

void StatusLine::showProgress(qreal value) {
    const int away = Theme::shared().reducedMotion() ? 0 : static_cast<int>(std::lround(distance * (1 - value)));
    layout()->setContentsMargins(0, gap - away, 0, away);
    auto* opacity = static_cast<QGraphicsOpacityEffect*>(graphicsEffect());
    opacity->setOpacity(value);
    opacity->setEnabled(value < 1);
    if (value <= 0 && shownText.isEmpty())
        hide();
}

} // namespace Quillstacks
