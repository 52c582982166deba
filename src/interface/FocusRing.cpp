#include "interface/FocusRing.h"

#include "interface/Drawing.h"
#include "interface/Theme.h"
#include "LastInput.h"

#include <QAbstractScrollArea>
#include <QFocusEvent>
#include <QPainter>

namespace Quillstacks {
namespace {

constexpr qreal lineWidth = 2;

bool cameByKey(Qt::FocusReason reason) {
    return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason || reason == Qt::ShortcutFocusReason;
}

} // namespace

/// Lives with a control, and makes its ring when the keyboard comes.
class FocusRingWatcher final : public QObject {
public:
    FocusRingWatcher(QWidget* watched, qreal controlRadius, FocusRing::Manner ringManner)
        : QObject(watched), control(watched), radius(controlRadius), manner(ringManner) {
        control->installEventFilter(this);
    }
    ~FocusRingWatcher() override { delete ring; }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (watched == control && event->type() == QEvent::FocusIn)
            arrived(static_cast<QFocusEvent*>(event)->reason());
        else if (watched == control && event->type() == QEvent::FocusOut)
            left(static_cast<QFocusEvent*>(event)->reason());
        return false;
    }
    [[nodiscard]] bool isShown() const { return ring && ring->isVisibleTo(ring->parentWidget()); }

private:
    void arrived(Qt::FocusReason reason) {
        // A window or menu that gives the focus back leaves it as it was.
        if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason)
            byKey = cameByKey(reason);
        if (manner == FocusRing::Manner::field || byKey) {
            delete ring;
            ring = new FocusRing(control, radius, manner);
        }
    }
    void left(Qt::FocusReason reason) {
        if (reason == Qt::PopupFocusReason)
            return;
        if (ring)
            ring->deleteLater();
        ring = nullptr;
    }

    QWidget* control;
    qreal radius;
    FocusRing::Manner manner;
    QPointer<FocusRing> ring;
    bool byKey = false;
};

void FocusRing::attach(QWidget* control, qreal radius, Manner manner) {
    LastInput::watch();
    new FocusRingWatcher(control, radius, manner);
}

bool FocusRing::isShownFor(const QWidget* control) {
    for (const QObject* child : control->children())
        if (const auto* watcher = dynamic_cast<const FocusRingWatcher*>(child))
            return watcher->isShown();
    return false;
}

FocusRing::FocusRing(QWidget* ringed, qreal controlRadius, Manner manner)
    : QWidget(ground(ringed)), control(ringed), radius(controlRadius), gap(manner == Manner::field ? 0 : 2) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    for (QWidget* widget = ringed; widget && widget != parentWidget(); widget = widget->parentWidget())
        widget->installEventFilter(this);
    connect(&Theme::shared(), &Theme::changed, this, qOverload<>(&QWidget::update));
    follow();
    raise();
    show();
}

/// The widest ancestor that the control scrolls with, so that nothing cuts the ring off.
QWidget* FocusRing::ground(const QWidget* control) {
    QWidget* ground = control->parentWidget();
    while (ground && !ground->isWindow() && ground->parentWidget()) {
        const auto* area = qobject_cast<QAbstractScrollArea*>(ground->parentWidget()->parentWidget());
        if (area && area->viewport() == ground->parentWidget())
            break;
        ground = ground->parentWidget();
    }
    return ground;
}

void FocusRing::follow() {
    if (!control || !parentWidget())
        return;
    const int reach = static_cast<int>(gap + lineWidth);
    const QRect place(control->mapTo(parentWidget(), QPoint(0, 0)), control->size());
    setGeometry(place.adjusted(-reach, -reach, reach, reach));
    setVisible(control->isVisibleTo(parentWidget()));
}

bool FocusRing::eventFilter(QObject* watched, QEvent* event) {
    Q_UNUSED(watched)
    switch (event->type()) {
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::Show:
    case QEvent::Hide:
        follow();
        break;
    default:
        break;
    }
    return false;
}

void FocusRing::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    strokeRounded(painter, rect(), radius + gap + (gap > 0 ? 0 : lineWidth), Theme::shared().color(ColorRole::accent),
                  lineWidth);
}

} // namespace Quillstacks
