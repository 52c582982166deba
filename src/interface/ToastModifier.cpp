#include "interface/ToastModifier.h"

#include "interface/Spring.h"
#include "interface/Theme.h"
#include "interface/ToastManager.h"
#include "interface/ToastView.h"

#include <QAccessible>
#include <QEvent>
#include <QWidget>

namespace Quillstacks {
namespace {

constexpr int bottomPadding = 24;
constexpr int reducedTime = 120; ///< milliseconds

void announce(ToastView* toast) {
    QAccessibleEvent alert(toast, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

} // namespace

ToastModifier::ToastModifier(QWidget* shownOver)
    : QObject(shownOver), host(shownOver), toastManager(&ToastManager::shared()), toast(new ToastView(shownOver)) {
    toast->hide();
    shownOver->installEventFilter(this);
    connect(&animation, &QVariantAnimation::valueChanged, this, [this](const QVariant& now) {
        position = now.toReal();
        place();
    });
    connect(&animation, &QVariantAnimation::finished, this, [this] {
        if (!toastManager->isShowing())
            toast->hide();
    });
    connect(toastManager, &ToastManager::messageChanged, this, &ToastModifier::showMessage);
    connect(toastManager, &ToastManager::isShowingChanged, this, &ToastModifier::showState);
    showMessage();
    if (toastManager->isShowing())
        showState();
}

void ToastModifier::showMessage() {
    toast->setMessage(toastManager->message());
    place();
    // A text in the place of one that still stands.
    if (toastManager->isShowing() && !toast->isHidden())
        announce(toast);
}

void ToastModifier::showState() {
    const bool showing = toastManager->isShowing();
    const Spring& spring = showing ? Springs::toastIn : Springs::toastOut;
    const bool reduced = Theme::shared().reducedMotion();
    animation.stop();
    animation.setStartValue(position);
    animation.setEndValue(showing ? 1.0 : 0.0);
    animation.setDuration(reduced ? reducedTime : static_cast<int>(spring.duration.count()));
    animation.setEasingCurve(reduced ? easeInOut() : spring.curve());
    if (showing) {
        toast->show();
        toast->raise();
        announce(toast);
    }
    animation.start();
}

void ToastModifier::place() {
    const QSize ground = toast->groundSize(host->width() - 2 * bottomPadding);
    const int margin = ToastView::shadowMargin();
    // It comes from below the edge; without movement it only fades.
    const qreal below = Theme::shared().reducedMotion() ? 0 : (1 - position) * (ground.height() + bottomPadding);
    const int top = host->height() - bottomPadding - ground.height() + qRound(below);
    toast->setGeometry(QRect((host->width() - ground.width()) / 2, top, ground.width(), ground.height())
                           .adjusted(-margin, -margin, margin, margin));
    toast->setOpacity(std::clamp(position, 0.0, 1.0));
}

bool ToastModifier::eventFilter(QObject* watched, QEvent* event) {
    if (watched == host && event->type() == QEvent::Resize)
        place();
    return false;
}

} // namespace Quillstacks
