#include "hotkey/PermissionBannerView.h"

#include "hotkey/PermissionManager.h"
#include "interface/Accessible.h"
#include "interface/Card.h"
#include "interface/Drawing.h"
#include "interface/Label.h"
#include "interface/Shadow.h"
#include "interface/SymbolImage.h"
#include "interface/Theme.h"
#include "LinearButton.h"

#include <QPainter>
#include <QVBoxLayout>

namespace Quillstacks {

namespace {

constexpr int padding = 20;
constexpr qreal radius = 12;
constexpr int badgeSize = 40;
constexpr int hoverTime = 200; ///< milliseconds
constexpr qreal innerEdge = 0.2;
constexpr qreal outerEdge = 0.05;
constexpr qreal outerEdgeHover = 0.08;

QWidget* makeBadge() {
    auto* badge = new Card(Card::tinted(ColorRole::accent, 0.1, 0, badgeSize / 2.0));
    badge->setFixedSize(badgeSize, badgeSize);
    auto* layout = new QVBoxLayout(badge);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(new SymbolImage(QStringLiteral("lock.shield"), 18, ColorRole::accent), 0, Qt::AlignCenter);
    return badge;
}

Label* makeLabel(const QString& text, qreal points, int weight, int lineHeight, ColorRole role) {
    auto* label = new Label(text, TextStyle::body, role);
    label->setAbsoluteFont(points, weight, lineHeight);
    label->setMaximumLines(0);
    return label;
}

} // namespace

PermissionBannerView::PermissionBannerView(PermissionManager& manager, QWidget* parent)
    : QWidget(parent), permissionManager(manager), hover(this, hoverTime) {
    setObjectName(QStringLiteral("PermissionBannerView"));
    setAccessibleName(QStringLiteral("Enable global shortcuts"));
    setAccessibleTraits(this, {QAccessible::AlertMessage, {}, {}, {}});
    auto* column = new QVBoxLayout(this);
    const int margin = shadowMargin() + padding;
    column->setContentsMargins(margin, margin, margin, margin);
    column->setSpacing(16);
    column->addLayout(makeText());
    column->addLayout(makeButtons());
    connect(&Theme::shared(), &Theme::changed, this, qOverload<>(&QWidget::update));
}

int PermissionBannerView::shadowMargin() {
    return shadowReach(ShadowKind::toast);
}

QLayout* PermissionBannerView::makeText() {
    auto* texts = new QVBoxLayout;
    texts->setSpacing(4);
    texts->addWidget(makeLabel(QStringLiteral("Enable global shortcuts"), 15, QFont::DemiBold, 20, ColorRole::text));
    texts->addWidget(makeLabel(QStringLiteral("Grant accessibility permission to use keyboard shortcuts from anywhere"),
                               13, QFont::Normal, 18, ColorRole::text2));
    auto* row = new QHBoxLayout;
    row->setSpacing(12);
    row->addWidget(makeBadge(), 0, Qt::AlignTop);
    row->addLayout(texts, 1);
    return row;
}

QLayout* PermissionBannerView::makeButtons() {
    auto* open = new LinearButton(QStringLiteral("Open System Settings"), true, this);
    connect(open, &QAbstractButton::clicked, &permissionManager, &PermissionManager::openSystemSettings);
    auto* dismiss = new LinearButton(QStringLiteral("Dismiss"), false, this);
    connect(dismiss, &QAbstractButton::clicked, &permissionManager, &PermissionManager::dismissAlert);
    auto* row = new QHBoxLayout;
    row->setSpacing(12);
    row->addWidget(open);
    row->addWidget(dismiss);
    row->addStretch();
    return row;
}

void PermissionBannerView::paintEvent(QPaintEvent*) {
    const int margin = shadowMargin();
    const QRectF card = QRectF(rect()).adjusted(margin, margin, -margin, -margin);
    QPainter painter(this);
    paintShadow(painter, card, radius, ShadowKind::toast);
    fillRounded(painter, card, radius, Theme::shared().material(Material::raised));
    const qreal outer = outerEdge + (outerEdgeHover - outerEdge) * hover.value();
    strokeRounded(painter, card, radius, withOpacity(Qt::black, outer));
    strokeRounded(painter, card.adjusted(1, 1, -1, -1), radius - 1, withOpacity(Qt::white, innerEdge));
}

void PermissionBannerView::enterEvent(QEnterEvent* event) {
    QWidget::enterEvent(event);
    hover.to(1);
}

void PermissionBannerView::leaveEvent(QEvent* event) {
    QWidget::leaveEvent(event);
    hover.to(0);
}

} // namespace Quillstacks
