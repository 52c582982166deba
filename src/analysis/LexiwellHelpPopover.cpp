#include "LexiwellHelpPopover.h"

#include "interface/Accessible.h"
#include "interface/Divider.h"
#include "interface/Drawing.h"
#include "interface/Label.h"
#include "interface/Shadow.h"
#include "interface/Sheet.h"
#include "interface/SymbolImage.h"
#include "interface/Theme.h"

#include <QKeyEvent>
#include <QVBoxLayout>

namespace Quillstacks {
namespace {

constexpr int boxWidth = 300;
constexpr int padding = 16;
constexpr qreal radius = 10;
constexpr int gap = 6; ///< between the anchor and the box

QLayout* makeHeading() {
    auto* heading = new QHBoxLayout;
    heading->setSpacing(8);
    heading->addWidget(new SymbolImage(QStringLiteral("stethoscope"), 18, ColorRole::blue));
    heading->addWidget(new Label(QStringLiteral("About Lexiwell"), TextStyle::headline), 1);
    return heading;
}

QLayout* makePassage(const QString& title, const QString& text, const QString& symbol = {}) {
    auto* label = new Label(title, TextStyle::caption);
    label->setTextStyle(TextStyle::caption, QFont::DemiBold);
    auto* head = new QHBoxLayout;
    head->setSpacing(6);
    if (!symbol.isEmpty())
        head->addWidget(new SymbolImage(symbol, 14, ColorRole::text2));
    head->addWidget(label, 1);
    auto* body = new Label(text, TextStyle::caption, ColorRole::text2);
    body->setMaximumLines(0);
    auto* passage = new QVBoxLayout;
    passage->setSpacing(2);
    passage->addLayout(head);
    passage->addWidget(body);
    return passage;
}

} // namespace

LexiwellHelpPopover* LexiwellHelpPopover::present(QWidget* anchor) {
    // On the sheet, since all else in the window is inert under it.
    QWidget* sheet = Sheet::of(anchor);
    auto* popover = new LexiwellHelpPopover(anchor, sheet ? sheet : anchor->window());
    popover->place();
    popover->show();
    popover->raise();
    popover->setFocus();
    qApp->installEventFilter(popover);
    return popover;
}

LexiwellHelpPopover::LexiwellHelpPopover(QWidget* shownBeside, QWidget* ground) : QWidget(ground), anchor(shownBeside) {
    setObjectName(QStringLiteral("LexiwellHelpPopover"));
    setAccessibleName(QStringLiteral("About Lexiwell"));
    setAccessibleTraits(this, {.role = QAccessible::Dialog, .press = {}, .isChecked = {}, .isSelected = {}});
    setFocusPolicy(Qt::ClickFocus);
    connect(anchor, &QObject::destroyed, this, &LexiwellHelpPopover::dismiss);
    const int reach = shadowReach(ShadowKind::menu);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(reach + padding, reach + padding, reach + padding, reach + padding);
    column->setSpacing(12);
    column->addLayout(makeHeading());
    column->addWidget(new Divider);
    column->addLayout(makePassage(QStringLiteral("What it does"),
                                  QStringLiteral("Lexiwell analyzes your prompt quality and provides suggestions to "
                                                 "improve clarity, specificity, and effectiveness.")));
    column->addLayout(makePassage(QStringLiteral("Privacy & Technology"),
                                  QStringLiteral("Analysis runs locally using Apple Intelligence (Apple's on-device "
                                                 "LLM). Your prompts are processed entirely on your Mac and never sent "
                                                 "to external servers."),
                                  QStringLiteral("lock.shield.fill")));
    column->addLayout(makePassage(QStringLiteral("Settings"),
                                  QStringLiteral("You can disable Lexiwell at any time in the app Settings.")));
}

void LexiwellHelpPopover::place() {
    const int reach = shadowReach(ShadowKind::menu);
    const int width = boxWidth + 2 * reach;
    const QSize size(width, layout()->heightForWidth(width));
    const QPoint below = anchor->mapTo(parentWidget(), QPoint(0, anchor->height() + gap));
    // The box stays inside; its shadow may be cut.
    const QRect room = parentWidget()->rect().adjusted(-reach, -reach, reach, reach);
    const int left = std::clamp(below.x() - reach, room.left(), std::max(room.left(), room.right() + 1 - size.width()));
    const int top = std::clamp(below.y() - reach, room.top(), std::max(room.top(), room.bottom() + 1 - size.height()));
    setGeometry(QRect(QPoint(left, top), size));
}

QRect LexiwellHelpPopover::box() const {
    const int reach = shadowReach(ShadowKind::menu);
    return rect().adjusted(reach, reach, -reach, -reach);
}

void LexiwellHelpPopover::dismiss() {
    if (leaving)
        return;
    leaving = true;
    qApp->removeEventFilter(this);
    const bool hadKeyboard = hasFocus() || isAncestorOf(QApplication::focusWidget());
    hide();
    if (hadKeyboard && anchor)
        anchor->setFocus();
    deleteLater();
    Q_EMIT dismissed();
}

void LexiwellHelpPopover::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintShadow(painter, box(), radius, ShadowKind::menu);
    drawBox(painter, box(), radius, Theme::shared().color(ColorRole::popover), Theme::shared().ink(0.10));
}

void LexiwellHelpPopover::mousePressEvent(QMouseEvent* event) {
    event->accept(); // what lies beneath is not meant
}

// The way on begins at the button again: this lies at no place of its own among the stops.
bool LexiwellHelpPopover::focusNextPrevChild(bool) {
    dismiss();
    return true;
}

bool LexiwellHelpPopover::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize && watched == parent()) {
        dismiss();
    } else if (event->type() == QEvent::KeyPress && watched->isWidgetType() &&
               static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        dismiss();
        return true;
    } else if (event->type() == QEvent::MouseButtonPress && watched->isWidgetType()) {
        const auto* widget = static_cast<QWidget*>(watched);
        // The button that shows it hides it as well.
        if (widget != this && widget != anchor && !isAncestorOf(widget))
            dismiss();
    }
    return false;
}

} // namespace Quillstacks
