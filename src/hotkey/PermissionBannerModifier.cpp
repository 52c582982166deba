#include "hotkey/PermissionBannerModifier.h"

#include "hotkey/PermissionBannerView.h"
#include "hotkey/PermissionManager.h"
#include "interface/Sheet.h"
#include "interface/Spring.h"
#include "interface/Theme.h"

#include <QAccessible>
#include <QApplication>
#include <QEvent>
#include <QGraphicsOpacityEffect>
#include <QWidget>

#include <algorithm>

namespace Quillstacks {

namespace {

constexpr int bottomMargin = 40;
constexpr int reducedTime = 120; ///< milliseconds

/// Above the window's content, and beneath what makes that inert.
void stack(QWidget* banner) {
    banner->raise();
    if (auto* sheet = banner->parentWidget()->findChild<Sheet*>(QString(), Qt::FindDirectChildrenOnly))
        banner->stackUnder(sheet);
}

} // namespace

PermissionBannerModifier::PermissionBannerModifier(QWidget* shownOver, PermissionManager& manager)
    : QObject(shownOver), window(shownOver), permissionManager(manager) {
    shownOver->installEventFilter(this);
    connect(&animation, &QVariantAnimation::valueChanged, this,
            [this](const QVariant& now) { showPosition(now.toReal()); });
    connect(&animation, &QVariantAnimation::finished, this, [this] { banner->setVisible(position > 0); });
    connect(qApp, &QApplication::focusChanged, this, &PermissionBannerModifier::focusMoved);
    connect(&manager, &PermissionManager::showPermissionAlertChanged, this, &PermissionBannerModifier::animate);
    if (manager.showPermissionAlert())
        animate(true, Springs::banner);
}

void PermissionBannerModifier::makeBanner() {
    banner = new PermissionBannerView(permissionManager, window);
    banner->hide();
    fading = new QGraphicsOpacityEffect(banner);
    banner->setGraphicsEffect(fading);
}

void PermissionBannerModifier::animate(bool isShown, const Spring& spring) {
    if (!banner)
        makeBanner();
    const bool reduced = Theme::shared().reducedMotion();
    animation.stop();
    animation.setStartValue(position);
    animation.setEndValue(isShown ? 1.0 : 0.0);
    animation.setDuration(reduced ? reducedTime : static_cast<int>(spring.duration.count()));
    animation.setEasingCurve(reduced ? easeInOut() : spring.curve());
    if (isShown) {
        stack(banner);
        banner->show();
        QAccessibleEvent alert(banner, QAccessible::Alert);
        QAccessible::updateAccessibility(&alert);
    } else {
        giveFocusBack();
    }
    animation.start();
}

void PermissionBannerModifier::focusMoved(QWidget* from, QWidget* to) {
    const bool hasCome = banner && from && to && banner->isAncestorOf(to) && !banner->isAncestorOf(from);
    if (hasCome && window->isAncestorOf(from))
        focusedBefore = from;
}

void PermissionBannerModifier::giveFocusBack() {
    QWidget* focused = window->focusWidget();
    if (!focused || !banner->isAncestorOf(focused))
        return;
    if (focusedBefore && focusedBefore->isVisible())
        focusedBefore->setFocus(Qt::OtherFocusReason);
    else
        focused->clearFocus();
}

void PermissionBannerModifier::showPosition(qreal now) {
    position = now;
    // In place it is painted as any widget is, which is crisper and cheaper.
    fading->setEnabled(position < 1);
    fading->setOpacity(std::clamp(position, 0.0, 1.0));
    place();
}

void PermissionBannerModifier::place() {
    const int margin = PermissionBannerView::shadowMargin();
    const int width = std::min(PermissionBannerView::maximumCardWidth, window->width() - 2 * bottomMargin) + 2 * margin;
    const int height = banner->layout() ? std::max(banner->sizeHint().height(), banner->heightForWidth(width)) : 0;
    const qreal below = Theme::shared().reducedMotion() ? 0 : (1 - position) * (height - 2 * margin + bottomMargin);
    const int top = window->height() - bottomMargin + margin - height + qRound(below);
    banner->setGeometry((window->width() - width) / 2, top, width, height);
}

bool PermissionBannerModifier::eventFilter(QObject* watched, QEvent* event) {
    if (watched == window && event->type() == QEvent::Resize && banner)
        place();
    return false;
}

} // namespace Quillstacks
