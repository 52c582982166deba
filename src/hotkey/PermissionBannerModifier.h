#pragma once

#include <QObject>
#include <QPointer>
#include <QVariantAnimation>
#include <QWidget>

class QGraphicsOpacityEffect;

namespace Quillstacks {

class PermissionBannerView;
class PermissionManager;
struct Spring;

/// Shows the permission banner over a window while its manager says so: at the bottom, centred, 40 above the edge,
/// beneath the window's sheets. It comes from below the edge, and goes there.
class PermissionBannerModifier final : public QObject {
    Q_OBJECT
public:
    /// The window owns it.
    PermissionBannerModifier(QWidget* window, PermissionManager& manager);

    /// nullptr until it is shown for the first time, which most programs never see.
    [[nodiscard]] PermissionBannerView* view() const { return banner; }
    [[nodiscard]] const QVariantAnimation& movement() const { return animation; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void makeBanner();
    void focusMoved(QWidget* from, QWidget* to);
    void giveFocusBack();
    void animate(bool isShown, const Spring& spring);
    void showPosition(qreal now);
    void place();

    QWidget* window;
    PermissionManager& permissionManager;
    PermissionBannerView* banner = nullptr;
    QGraphicsOpacityEffect* fading = nullptr;
    QPointer<QWidget> focusedBefore; ///< what the keyboard came from to the banner
    QVariantAnimation animation;     ///< 0 out of sight, 1 in place
    qreal position = 0;
};

} // namespace Quillstacks
