// The parts of quick access, their places, and how events reach the view; its rules are in QuickAccessView.cpp.
#include "FillVariablesToggle.h"
#include "QuickAccessEmptyState.h"
#include "QuickAccessFooter.h"
#include "QuickAccessMetrics.h"
#include "QuickAccessResultList.h"
#include "QuickAccessSearchRow.h"
#include "QuickAccessView.h"

#include "interface/Drawing.h"
#include "interface/IconButton.h"
#include "interface/Shadow.h"
#include "interface/TextField.h"
#include "interface/Theme.h"
#include "variables/VariablePreferences.h"

#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>

namespace Quillstacks {

void QuickAccessView::build() {
    searchBar = new QuickAccessSearchRow(this);
    list = new QuickAccessResultList(this);
    empty = new QuickAccessEmptyState(this);
    empty->hide();
    footer = new QuickAccessFooter(this);
}

void QuickAccessView::connectParts() {
    TextField* field = searchBar->field();
    connect(field, &QLineEdit::textChanged, this, &QuickAccessView::setSearchText);
    connect(field, &TextField::focused, this, [this] { setSearchFocused(true); });
    connect(field, &TextField::unfocused, this, [this] { setSearchFocused(false); });
    for (QWidget* part : {static_cast<QWidget*>(field), static_cast<QWidget*>(searchBar->clearButton()),
                          static_cast<QWidget*>(toggle())})
        part->installEventFilter(this);
    connect(list, &QuickAccessResultList::clicked, this, &QuickAccessView::choose);
    connectToWhatItShows();
}

void QuickAccessView::connectToWhatItShows() {
    connect(&prompts, &LiveQueryBase::changed, this, [this] {
        list->forgetHeights();
        outdate();
        if (hasAppeared)
            refresh();
    });
    connect(&Theme::shared(), &Theme::changed, this, [this] {
        list->forgetHeights();
        outdate();
        placeParts();
        update();
        if (hasAppeared)
            refresh();
    });
    enableVariableSubstitutionPreference().observe(this, [this] { outdate(); });
}

// A view that was built ahead takes the library as it is when it appears.
void QuickAccessView::outdate() {
    isPrepared = false;
    if (!hasAppeared)
        Q_EMIT outdated();
}

FillVariablesToggle* QuickAccessView::toggle() const {
    return footer->toggle();
}

QRect QuickAccessView::cardRect() const {
    using QuickAccessMetrics::cardInset;
    if (!Theme::shared().isComposited())
        return rect();
    return rect().adjusted(cardInset, cardInset, -cardInset, -cardInset);
}

int QuickAccessView::cardRadius() const {
    return Theme::shared().isComposited() ? QuickAccessMetrics::cardRadius : 0;
}

void QuickAccessView::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    placeParts();
}

void QuickAccessView::placeParts() {
    const QRect inner = cardRect().adjusted(1, 1, -1, -1);
    const int searchHeight = searchBar->sizeHint().height();
    const int footerHeight = footer->sizeHint().height();
    searchBar->setGeometry(inner.x(), inner.y(), inner.width(), searchHeight);
    footer->setGeometry(inner.x(), inner.bottom() + 1 - footerHeight, inner.width(), footerHeight);
    // A line of one pixel parts the list from what is above and below.
    const QRect middle(inner.x(), inner.y() + searchHeight + 1, inner.width(),
                       std::max(inner.height() - searchHeight - footerHeight - 2, 0));
    list->setGeometry(middle);
    empty->setGeometry(middle);
}

void QuickAccessView::paintEvent(QPaintEvent*) {
    const Theme& theme = Theme::shared();
    const QRectF card = cardRect();
    const int radius = cardRadius();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (theme.isComposited())
        paintShadow(painter, card, radius, ShadowKind::panel);
    fillRounded(painter, card, radius, theme.material(Material::regular));

    QPainterPath outline;
    outline.addRoundedRect(card, radius, radius);
    painter.save();
    painter.setClipPath(outline, Qt::IntersectClip);
    const QColor wash = theme.material(Material::ultraThin);
    const QColor line = theme.color(ColorRole::separator);
    const QRect above = searchBar->geometry();
    const QRect below = footer->geometry();
    painter.fillRect(QRect(above.x(), cardRect().y(), above.width(), above.bottom() + 1 - cardRect().y()), wash);
    painter.fillRect(QRect(below.x(), below.y(), below.width(), cardRect().bottom() + 1 - below.y()), wash);
    painter.fillRect(QRect(above.x(), above.bottom() + 1, above.width(), 1), line);
    painter.fillRect(QRect(below.x(), below.y() - 1, below.width(), 1), line);
    painter.restore();
    strokeRounded(painter, card, radius,
                  theme.color(theme.isComposited() ? ColorRole::border : ColorRole::separatorStrong));
}

bool QuickAccessView::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress && handleKey(static_cast<QKeyEvent*>(event)->key()))
        return true;
    return QWidget::eventFilter(watched, event);
}

void QuickAccessView::keyPressEvent(QKeyEvent* event) {
    if (!handleKey(event->key()))
        QWidget::keyPressEvent(event);
}

bool QuickAccessView::handleKey(int key) {
    switch (key) {
    case Qt::Key_Up:
        moveUp();
        return true;
    case Qt::Key_Down:
        moveDown();
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        chooseSelected();
        return true;
    case Qt::Key_Escape:
        escape();
        return true;
    default:
        return false;
    }
}

} // namespace Quillstacks
