#include "shell/welcome/SplashScreenWindow.h"

#include "interface/Accessible.h"
#include "interface/Drawing.h"
#include "interface/Shadow.h"
#include "interface/Theme.h"
#include "platform/Windows.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QScreen>
#include <QWindow>

namespace Quillstacks {
namespace {

constexpr int cardRadius = 20;

int radius() {
    return Theme::shared().isComposited() ? cardRadius : 0;
}

} // namespace

SplashScreenWindow::SplashScreenWindow()
    : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint) {
    setObjectName(QStringLiteral("splash-screen"));
    setWindowTitle(QStringLiteral("Welcome to Quillstacks"));
    setWindowRole(QStringLiteral("splash-screen"));
    setAccessibleTraits(this, {QAccessible::Window, {}, {}, {}});
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_QuitOnClose, false);
    connect(&Theme::shared(), &Theme::changed, this, [this] {
        place();
        update();
    });
}

void SplashScreenWindow::centre(QScreen* on, const QSize& cardSize) {
    disconnect(followed);
    centredOn = on;
    wanted = cardSize;
    followed = connect(on, &QScreen::availableGeometryChanged, this, &SplashScreenWindow::place);
    connect(on, &QObject::destroyed, this, [this, on] {
        if (centredOn == on)
            centredOn = nullptr;
    });
    place();
}

void SplashScreenWindow::place() {
    if (!centredOn)
        return;
    const QRect room = centredOn->availableGeometry();
    const QSize size = wanted.boundedTo(room.size());
    const QRect card(room.x() + (room.width() - size.width()) / 2, room.y() + (room.height() - size.height()) / 2,
                     size.width(), size.height());
    // The shadow's room never leaves the screen: a window manager would move or cut the window then.
    const int reach = Theme::shared().isComposited() ? shadowReach(ShadowKind::welcome) : 0;
    const QRect whole = card.adjusted(-reach, -reach, reach, reach).intersected(room);
    shadow = {card.left() - whole.left(), card.top() - whole.top(), whole.right() - card.right(),
              whole.bottom() - card.bottom()};
    setFixedSize(whole.size());
    move(whole.topLeft());
    layOut();
}

QRect SplashScreenWindow::cardRect() const {
    return rect().marginsRemoved(shadow);
}

void SplashScreenWindow::setContent(QWidget* view) {
    content = view;
    content->setParent(this);
    content->show();
    layOut();
}

void SplashScreenWindow::layOut() {
    if (content)
        content->setGeometry(cardRect());
    if (isVisible() && Theme::shared().isComposited())
        Windows::setBlurBehind(this, cardRect(), radius());
}

void SplashScreenWindow::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    layOut();
}

void SplashScreenWindow::closeEvent(QCloseEvent* event) {
    QWidget::closeEvent(event);
    Q_EMIT closed();
}

void SplashScreenWindow::paintEvent(QPaintEvent*) {
    const Theme& theme = Theme::shared();
    const QRectF card = cardRect();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (theme.isComposited())
        paintShadow(painter, card, radius(), ShadowKind::welcome);
    fillRounded(painter, card, radius(), theme.material(Material::regular));
    strokeRounded(painter, card, radius(),
                  theme.color(theme.isComposited() ? ColorRole::border : ColorRole::separatorStrong));
}

void SplashScreenWindow::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && cardRect().contains(event->position().toPoint()))
        grip = event->position().toPoint();
}

void SplashScreenWindow::mouseMoveEvent(QMouseEvent* event) {
    if (!grip || (event->buttons() & Qt::LeftButton) == 0)
        return;
    // The window manager knows about edges and other screens; where it can't, we move.
    if (windowHandle() && windowHandle()->startSystemMove())
        grip.reset();
    else
        move(event->globalPosition().toPoint() - *grip);
}

void SplashScreenWindow::mouseReleaseEvent(QMouseEvent*) {
    grip.reset();
}

} // namespace Quillstacks
