#include "SheetCard.h"

#include "interface/Drawing.h"
#include "interface/OverlayScrollBar.h"
#include "interface/ScrollArea.h"
#include "interface/Theme.h"

#include <QGraphicsOpacityEffect>
#include <QLayout>
#include <QPainter>

namespace Quillstacks {

SheetCard::SheetCard(std::unique_ptr<QWidget> content, QWidget* parent)
    : QWidget(parent), scroll(new ScrollArea(this)), contentWidget(content.release()) {
    // The content's size is worked out here: it may give way down to its minimum before anything scrolls.
    scroll->setWidgetResizable(false);
    scroll->setContent(contentWidget);
    OverlayScrollBar::installHorizontal(scroll);
    connect(&Theme::shared(), &Theme::changed, this, qOverload<>(&QWidget::update));
}

QSize SheetCard::preferredSize(int width) const {
    QSize size = contentWidget->sizeHint().expandedTo(contentWidget->minimumSize());
    if (width > 0)
        size.setWidth(width);
    size = size.boundedTo(contentWidget->maximumSize());
    if (contentWidget->hasHeightForWidth())
        size.setHeight(contentWidget->heightForWidth(size.width()));
    return size.expandedTo(contentWidget->minimumSize());
}

QSize SheetCard::smallestSize(int width) const {
    const QLayout* layout = contentWidget->layout();
    QSize size = contentWidget->minimumSizeHint();
    if (layout && layout->hasHeightForWidth())
        size.setHeight(layout->totalMinimumHeightForWidth(std::max(width, size.width())));
    return size.expandedTo(contentWidget->minimumSize());
}

void SheetCard::setOpacity(qreal opacity) {
    if (opacity >= 1) {
        setGraphicsEffect(nullptr);
        effect = nullptr;
        return;
    }
    if (!effect) {
        effect = new QGraphicsOpacityEffect(this);
        setGraphicsEffect(effect);
    }
    effect->setOpacity(opacity);
}

void SheetCard::resizeEvent(QResizeEvent*) {
    fit();
}

void SheetCard::fit() {
    scroll->setGeometry(rect());
    contentWidget->resize(size().expandedTo(smallestSize(width())));
}

void SheetCard::paintEvent(QPaintEvent*) {
    const Theme& theme = Theme::shared();
    QPainter painter(this);
    fillRounded(painter, rect(), radius, theme.color(ColorRole::sheet));
    if (theme.isDark())
        strokeRounded(painter, rect(), radius, theme.ink(.085));
}

} // namespace Quillstacks
