#pragma once

#include <QObject>
#include <QVariantAnimation>

class QWidget;

namespace Quillstacks {

class ToastManager;
class ToastView;

/// Shows what the toast manager says over a widget: at the bottom, centred, 24 above the edge.
class ToastModifier final : public QObject {
    Q_OBJECT
public:
    /// The host owns it.
    explicit ToastModifier(QWidget* host);

    [[nodiscard]] ToastView* view() const { return toast; }
    /// How it comes in or goes out.
    [[nodiscard]] const QVariantAnimation& movement() const { return animation; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void showMessage();
    void showState();
    void place();

    QWidget* host;
    ToastManager* toastManager;
    ToastView* toast;
    QVariantAnimation animation; ///< 0 out of sight, 1 in place
    qreal position = 0;
};

} // namespace Quillstacks
