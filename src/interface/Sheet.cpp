#include "interface/Sheet.h"

#include "foundation/MainQueue.h"
#include "interface/Accessible.h"
#include "interface/Button.h"
#include "interface/Drawing.h"
#include "interface/PlainTextEdit.h"
#include "interface/ScrollArea.h"
#include "interface/Shadow.h"
#include "interface/Spring.h"
#include "interface/TextField.h"
#include "interface/Theme.h"
#include "LastInput.h"
#include "SheetCard.h"
#include "SheetGuard.h"

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QSignalBlocker>

namespace Quillstacks {
namespace {

constexpr int enterTime = 200; ///< milliseconds
constexpr int leaveTime = 140;
constexpr int reducedTime = 120;
constexpr qreal rise = 8;
constexpr qreal laterScrim = 0.8;

/// Whether the content said itself what should have the keyboard.
QWidget* wantedFocus(const QWidget* content) {
    QWidget* wanted = content->focusWidget();
    if (wanted && wanted != content)
        return wanted;
    for (QWidget* child : content->findChildren<QWidget*>()) {
        const bool isText = qobject_cast<QLineEdit*>(child) || qobject_cast<PlainTextEdit*>(child);
        if (isText && child->isVisibleTo(content) && child->isEnabled() && child->focusPolicy() != Qt::NoFocus)
            return child;
    }
    return nullptr;
}

} // namespace

Sheet* Sheet::present(QWidget* host, std::unique_ptr<QWidget> content, Options options) {
    // A menu that is open would lie over the sheet, and act on what is inert beneath it.
    QWidget* popup = QApplication::activePopupWidget();
    while (popup && popup != host->window()) {
        popup->close();
        QWidget* next = QApplication::activePopupWidget();
        popup = next == popup ? nullptr : next;
    }
    return new Sheet(host, std::move(content), std::move(options));
}

Sheet* Sheet::of(const QWidget* widget) {
    for (const QWidget* at = widget; at; at = at->isWindow() ? nullptr : at->parentWidget())
        if (const auto* sheet = qobject_cast<const Sheet*>(at))
            return const_cast<Sheet*>(sheet);
    return nullptr;
}

bool Sheet::covers(const QWidget* widget) {
    return SheetGuard::shared().covers(widget);
}

Sheet* Sheet::top(const QWidget* widget) {
    return SheetGuard::shared().top(widget);
}

Sheet::Sheet(QWidget* host, std::unique_ptr<QWidget> content, Options given)
    : QWidget(host->window()), options(std::move(given)) {
    // Holds the keyboard where the content has nothing for it. A click doesn't give it: one on a button, which takes no
    // focus from the mouse, would reach up to here and take the keyboard out of the field that has it.
    setFocusPolicy(Qt::TabFocus);
    setAccessibleName(options.accessibleName);
    setAccessibleTraits(this, {QAccessible::Dialog, {}, {}, {}});
    QWidget* window = host->window();
    depth = SheetGuard::shared().count(window);
    restoreTo = window->focusWidget();
    lastFocused = wantedFocus(content.get());
    contentWidget = content.get();
    card = new SheetCard(std::move(content), this);
    window->installEventFilter(this);
    contentWidget->installEventFilter(this);
    // Without a word then: who listens is often the host itself, or holds it, and is half gone.
    if (host != window)
        connect(host, &QObject::destroyed, this, [this] {
            const QSignalBlocker quiet(this);
            dismiss();
        });
    connect(&animation, &QVariantAnimation::valueChanged, this,
            [this](const QVariant& now) { showProgress(now.toReal()); });
    connect(&animation, &QVariantAnimation::finished, this, [this] {
        if (leaving)
            deleteLater();
    });
    connect(&Theme::shared(), &Theme::changed, this, [this] {
        place();
        update();
    });

    SheetGuard::shared().add(this);
    contentWidget->show();
    place();
    raise();
    show();
    takeFocus();
    appear();
}

Sheet::~Sheet() {
    SheetGuard::shared().remove(this);
}

void Sheet::appear() {
    if (options.appearsAfter <= 0) {
        animate(0, 1);
        return;
    }
    showProgress(0);
    MainQueue::after(options.appearsAfter, this, [this] {
        if (!leaving)
            animate(0, 1);
    });
}

void Sheet::dismiss() {
    if (leaving)
        return;
    leaving = true;
    const auto over = SheetGuard::shared().above(this);
    for (auto sheet = over.rbegin(); sheet != over.rend(); ++sheet)
        (*sheet)->dismiss();
    SheetGuard::shared().remove(this);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    restoreFocus();
    card->setEnabled(false);
    animate(progress, 0);
    Q_EMIT closed();
}

QRect Sheet::cardGeometry() const {
    return cardPlace;
}

QRect Sheet::area() const {
    return options.area ? options.area() : rect();
}

QSize Sheet::cardSize(const QRect& area) const {
    const QSize room = area.size() - QSize(2 * options.margin, 2 * options.margin);
    const QSize least = options.minimumSize.isValid() ? options.minimumSize : QSize(0, 0);
    QSize size = options.preferredSize.isValid() ? options.preferredSize : card->preferredSize(0);
    size = size.expandedTo(least);
    if (size.width() > room.width() && !options.preferredSize.isValid())
        size = card->preferredSize(room.width()).expandedTo(least);
    // A smallest size is worth more than the margin, the window's size more than either.
    return size.boundedTo(room.expandedTo(least)).boundedTo(area.size());
}

void Sheet::place() {
    if (placing || !card)
        return;
    placing = true;
    const bool sameWindow = geometry() == window()->rect();
    setGeometry(window()->rect());
    const QRect covered = area();
    QRect newPlace(QPoint(0, 0), cardSize(covered));
    newPlace.moveCenter(covered.center());
    const bool samePlace = sameWindow && newPlace == cardPlace && !options.area;
    cardPlace = newPlace;
    card->resize(cardPlace.size());
    card->fit();
    // Each key in a field may ask for a layout; the whole window is dear to paint.
    if (!samePlace)
        showProgress(progress);
    placing = false;
}

void Sheet::animate(qreal from, qreal to) {
    const bool reduced = Theme::shared().reducedMotion();
    animation.stop();
    if (!window()->isVisible()) {
        showProgress(to);
        if (leaving)
            deleteLater();
        return;
    }
    animation.setStartValue(from);
    animation.setEndValue(to);
    animation.setDuration(reduced ? reducedTime : to > from ? enterTime : leaveTime);
    animation.setEasingCurve(to > from ? easeOut() : easeIn());
    animation.start();
}

void Sheet::showProgress(qreal now) {
    progress = now;
    const qreal offset = Theme::shared().reducedMotion() ? 0 : rise * (1 - progress);
    card->move(cardPlace.topLeft() + QPoint(0, qRound(offset)));
    card->setOpacity(progress);
    update();
}

void Sheet::paintEvent(QPaintEvent*) {
    const Theme& theme = Theme::shared();
    QPainter painter(this);
    painter.setOpacity(progress);
    QColor scrim = theme.color(ColorRole::scrim);
    if (depth > 0)
        scrim.setAlphaF(scrim.alphaF() * static_cast<float>(laterScrim));
    fillRounded(painter, area(), options.areaRadius, scrim);
    const QRectF box = card->geometry();
    painter.setClipRect(area());
    paintShadow(painter, box, SheetCard::radius, ShadowKind::sheet);
    const QColor edge = theme.isDark() ? withOpacity(Qt::black, .55) : theme.color(ColorRole::border);
    strokeRounded(painter, box.adjusted(-1, -1, 1, 1), SheetCard::radius + 1, edge);
}

void Sheet::keyPressEvent(QKeyEvent* event) {
    event->accept(); // nothing gets past a sheet
    switch (event->key()) {
    case Qt::Key_Escape:
        if (const auto call = options.onEscape)
            call();
        else if (options.escape == Escape::dismisses)
            dismiss();
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (!event->isAutoRepeat() && contentWidget && (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier)
            Button::pressDefault(contentWidget);
        break;
    case Qt::Key_Tab:
        focusNextPrevChild(true);
        break;
    case Qt::Key_Backtab:
        focusNextPrevChild(false);
        break;
    default:
        scrollByKey(event);
    }
}

void Sheet::scrollByKey(QKeyEvent* event) {
    static constexpr int keys[] = {Qt::Key_Up,       Qt::Key_Down, Qt::Key_PageUp,
                                   Qt::Key_PageDown, Qt::Key_Home, Qt::Key_End};
    if (std::find(std::begin(keys), std::end(keys), event->key()) == std::end(keys) || !contentWidget)
        return;
    ScrollArea* area = contentWidget->findChild<ScrollArea*>();
    if (!area || !area->isVisible())
        area = card->scroll;
    area->scrollByKey(event);
}

void Sheet::mousePressEvent(QMouseEvent* event) {
    event->accept();
}

void Sheet::wheelEvent(QWheelEvent* event) {
    event->accept();
}

void Sheet::contextMenuEvent(QContextMenuEvent* event) {
    event->accept();
}

bool Sheet::eventFilter(QObject* watched, QEvent* event) {
    if ((watched == window() && event->type() == QEvent::Resize) ||
        (watched == contentWidget && event->type() == QEvent::LayoutRequest))
        place();
    return false;
}

bool Sheet::focusNextPrevChild(bool next) {
    QWidget* start = QApplication::focusWidget();
    if (!start || !isAncestorOf(start))
        start = this;
    QWidget* at = start;
    do {
        at = next ? at->nextInFocusChain() : at->previousInFocusChain();
        // The sheet counts as its own ancestor, and is no stop itself.
        const bool takes = at != this && isAncestorOf(at) && (at->focusPolicy() & Qt::TabFocus) && at->isVisible() &&
                           at->isEnabled() && !at->focusProxy();
        if (!takes)
            continue;
        at->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
        card->scroll->ensureWidgetVisible(at, 20, 20);
        return true;
    } while (at != start);
    return true;
}

void Sheet::takeFocus() {
    QWidget* wanted = lastFocused && lastFocused->isVisible() && lastFocused->isEnabled() ? lastFocused.data() : this;
    // Who came by key sees which button has the keyboard.
    const bool showsRing = LastInput::wasKey() && qobject_cast<QAbstractButton*>(wanted);
    wanted->setFocus(showsRing        ? Qt::ShortcutFocusReason
                     : wanted == this ? Qt::OtherFocusReason
                                      : Qt::ActiveWindowFocusReason);
}

void Sheet::restoreFocus() {
    Sheet* beneath = top(this);
    if (restoreTo && restoreTo->isVisible() && restoreTo->isEnabled() && !covers(restoreTo))
        restoreTo->setFocus(Qt::ActiveWindowFocusReason);
    else if (beneath)
        beneath->takeFocus();
    else if (QWidget* focused = QApplication::focusWidget(); focused && isAncestorOf(focused))
        focused->clearFocus();
}

} // namespace Quillstacks
