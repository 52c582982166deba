#include "QuickAccessWindowManager.h"

#include "QuickAccessPanel.h"
#include "QuickAccessView.h"

#include "foundation/MainQueue.h"
#include "interface/Spring.h"
#include "interface/Theme.h"
#include "library/model/ModelContainer.h"
#include "platform/HotKeys.h"
#include "platform/Windows.h"

#include <QGuiApplication>
#include <QImage>
#include <QPropertyAnimation>
#include <QScreen>

#include <tuple>

namespace Quillstacks {

namespace {
constexpr int fadeMilliseconds = 120;
/// After the last of a series of changes of what the next show needs.
constexpr double preparationDelay = 0.5;
} // namespace

QuickAccessWindowManager& QuickAccessWindowManager::shared() {
    static auto* const manager = new QuickAccessWindowManager(qApp);
    return *manager;
}

QuickAccessWindowManager::QuickAccessWindowManager(QObject* parent) : QObject(parent) {
    connect(qApp, &QGuiApplication::applicationStateChanged, this, &QuickAccessWindowManager::applicationStateChanged);
    connect(qApp, &QCoreApplication::aboutToQuit, this, &QuickAccessWindowManager::tearDown);
    connect(&Theme::shared(), &Theme::changed, this, &QuickAccessWindowManager::followCard);
}

QuickAccessWindowManager::~QuickAccessWindowManager() {
    tearDown();
}

void QuickAccessWindowManager::tearDown() {
    delete panel;
}

void QuickAccessWindowManager::setModelContainer(ModelContainer* newContainer) {
    if (container == newContainer)
        return;
    close();
    container = newContainer;
    isRootFresh = false;
    if (panel)
        panel->setRootView(nullptr);
}

QuickAccessView* QuickAccessWindowManager::rootView() const {
    return panel ? panel->rootView() : nullptr;
}

QuickAccessPanel* QuickAccessWindowManager::windowController() const {
    return panel;
}

bool QuickAccessWindowManager::isVisible() const {
    return panel && panel->isVisible();
}

void QuickAccessWindowManager::toggle() {
    if (isVisible()) {
        std::ignore = HotKeys::takeEventTime(); // the press that closes it opens nothing
        close();
    } else {
        show();
    }
}

void QuickAccessWindowManager::close() {
    if (panel)
        panel->close();
}

void QuickAccessWindowManager::prepare() {
    if (!container || isVisible())
        return;
    if (!panel)
        createPanel();
    if (!isRootFresh)
        renewRootView();
    panel->setGeometry(panelFrame());
    panel->rootView()->setGeometry(panel->rect()); // a panel that is hidden passes its size on only when it is shown
    panel->winId();                                // closing it took its native window away
    panel->rootView()->prepare();
    drawAhead();
}

void QuickAccessWindowManager::show() {
    const quint32 eventTime = HotKeys::takeEventTime();
    if (!container)
        return;
    if (!panel)
        createPanel();
    if (!isRootFresh)
        renewRootView();
    isRootFresh = false;
    panel->setGeometry(panelFrame());
    panel->rootView()->setGeometry(panel->rect()); // a panel that is hidden passes its size on only when it is shown
    panel->setWindowOpacity(Windows::isComposited() ? 0.0 : 1.0);
    panel->rootView()->appear();
    if (pictureSize != sizeInPixels())
        Windows::clearFirstPicture(panel);
    blurBehind();
    Windows::showAndActivate(panel, eventTime);
    // In a block of its own, so that the panel is on screen before it begins.
    MainQueue::async(panel, [this] { fadeIn(); });
}

void QuickAccessWindowManager::createPanel() {
    panel = new QuickAccessPanel;
    panel->resize(contentSize);
    connect(panel, &QuickAccessPanel::resized, this, &QuickAccessWindowManager::followCard);
    connect(panel, &QuickAccessPanel::closed, this, [this] {
        if (fade)
            fade->stop();
        // The view that was just used is spent; the next one is built now, while nobody waits for it.
        MainQueue::async(this, [this] { prepare(); });
    });
}

// Draws the panel once where nobody sees it: glyphs, symbols, the shadow and the rows' layouts are kept from then on,
// and the picture is there before the panel has drawn itself.
void QuickAccessWindowManager::drawAhead() {
    pictureSize = sizeInPixels();
    QImage image(pictureSize, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(panel->devicePixelRatioF());
    image.fill(Qt::transparent);
    panel->render(&image);
    Windows::setFirstPicture(panel, image);
}

// The next show begins without a picture, unless there is a quiet moment before it.
void QuickAccessWindowManager::dropPicture() {
    Windows::clearFirstPicture(panel);
    MainQueue::after(preparationDelay, this, [this, change = ++changesWhileHidden] {
        if (change == changesWhileHidden)
            prepare();
    });
}

QSize QuickAccessWindowManager::sizeInPixels() const {
    return panel->size() * panel->devicePixelRatioF();
}

void QuickAccessWindowManager::renewRootView() {
    Windows::clearFirstPicture(panel); // it shows another view's library
    panel->setRootView(new QuickAccessView(container->mainContext(), [this] { close(); }));
    connect(rootView(), &QuickAccessView::outdated, this, &QuickAccessWindowManager::dropPicture);
    isRootFresh = true;
}

void QuickAccessWindowManager::blurBehind() {
    if (!Windows::isComposited() || !panel || !panel->rootView())
        return;
    const QuickAccessView& view = *panel->rootView();
    Windows::setBlurBehind(panel, view.cardRect(), view.cardRadius());
}

void QuickAccessWindowManager::followCard() {
    if (isVisible())
        blurBehind();
}

void QuickAccessWindowManager::fadeIn() {
    if (!isVisible() || panel->windowOpacity() >= 1.0)
        return;
    auto* animation = new QPropertyAnimation(panel, "windowOpacity", panel);
    animation->setDuration(fadeMilliseconds);
    animation->setEasingCurve(easeOut());
    animation->setStartValue(0.0);
    animation->setEndValue(1.0);
    fade = animation;
    animation->start(QAbstractAnimation::DeleteWhenStopped);
}

// Looked at again in a turn of its own: while the active state moves from one window of the program to another, it is
// nobody's for a moment. A panel that never had it yet is only just coming up.
void QuickAccessWindowManager::applicationStateChanged(Qt::ApplicationState state) {
    isApplicationActive = state == Qt::ApplicationActive;
    if (isApplicationActive || !isVisible())
        return;
    MainQueue::async(panel, [this] {
        if (!isApplicationActive && panel->wasActive())
            close();
    });
}

QRect QuickAccessWindowManager::panelFrame() const {
    const QScreen* screen = Windows::screenAt(Windows::mouseLocation());
    if (!screen)
        screen = QGuiApplication::primaryScreen();
    if (!screen)
        return panel->geometry();
    const QRect visible = screen->availableGeometry();
    const QSize size = contentSize.boundedTo(visible.size());
    return {visible.x() + (visible.width() - size.width()) / 2, visible.y() + (visible.height() - size.height()) / 2,
            size.width(), size.height()};
}

} // namespace Quillstacks
