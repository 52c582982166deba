#include "VariablesPreviewView.h"

#include "VariablesList.h"

#include "interface/Drawing.h"
#include "interface/IconButton.h"
#include "interface/Label.h"
#include "interface/ScrollArea.h"
#include "interface/Symbol.h"
#include "interface/Theme.h"
#include "variables/engine/VariableEngine.h"

#include <QPainter>
#include <QVBoxLayout>

namespace Quillstacks {

namespace {

constexpr int headerInset = 4;
constexpr int headerHeight = 36;
constexpr int symbolSize = 16;
constexpr int padding = 12;
constexpr int wholeHeaderHeight = headerHeight + 2 * headerInset;

} // namespace

VariablesPreviewView::VariablesPreviewView(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("VariablesPreviewView"));
    collapseButton = new IconButton(QStringLiteral("chevron.up"), QString(), IconButton::Size::row);
    collapseButton->setSymbolSize(14);
    connect(collapseButton, &IconButton::clicked, this, [this] {
        setCollapsed(!collapsed);
        Q_EMIT collapsedChanged(collapsed);
    });
    auto* header = new QHBoxLayout;
    header->setContentsMargins(headerInset + 10 + symbolSize + 8, headerInset, 2 * headerInset, headerInset);
    header->addWidget(new Label(QStringLiteral("Variables"), TextStyle::headline), 1);
    header->addWidget(collapseButton);

    list = new VariablesList;
    auto* content = new QWidget;
    auto* inner = new QVBoxLayout(content);
    inner->setContentsMargins(padding, padding, padding, padding);
    inner->addWidget(list);
    inner->addStretch();
    auto* scroll = new ScrollArea;
    scroll->setContent(content);
    scroll->setMinimumHeight(1); // it is squeezed away while the panel folds
    area = scroll;

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    auto* headerHost = new QWidget;
    headerHost->setFixedHeight(wholeHeaderHeight);
    headerHost->setLayout(header);
    column->addWidget(headerHost, 0, Qt::AlignTop);
    column->addWidget(area, 1);
    refresh();
}

void VariablesPreviewView::setText(const QString& text) {
    if (text == body && isListCurrent)
        return;
    body = text;
    isListCurrent = false;
    refresh();
}

void VariablesPreviewView::setCollapsed(bool isCollapsed) {
    collapsed = isCollapsed;
    refresh();
}

void VariablesPreviewView::refresh() {
    collapseButton->setSymbol(collapsed ? QStringLiteral("chevron.down") : QStringLiteral("chevron.up"));
    collapseButton->setHelp(collapsed ? QStringLiteral("Expand Variables") : QStringLiteral("Collapse Variables"));
    showArea();
    updateGeometry();
    if (collapsed || isListCurrent)
        return;
    list->setVariables(extractVariables(body));
    isListCurrent = true;
}

// A list that folds stays until nothing is left of its room.
void VariablesPreviewView::showArea() {
    area->setVisible(!collapsed || (isVisible() && height() > wholeHeaderHeight));
}

void VariablesPreviewView::resizeEvent(QResizeEvent*) {
    showArea();
}

QSize VariablesPreviewView::sizeHint() const {
    return {QWidget::sizeHint().width(), collapsed ? wholeHeaderHeight : QWidget::sizeHint().height()};
}

QSize VariablesPreviewView::minimumSizeHint() const {
    return {QWidget::minimumSizeHint().width(), wholeHeaderHeight + (collapsed ? 0 : 1)};
}

void VariablesPreviewView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QRectF header(headerInset, headerInset, width() - 2 * headerInset, headerHeight);
    fillRounded(painter, header, 4, QColor::fromRgbF(0.5F, 0.5F, 0.5F, 0.1F));
    Symbol::paint(painter,
                  QRectF(header.left() + 10, header.top() + (headerHeight - symbolSize) / 2.0, symbolSize, symbolSize),
                  QStringLiteral("x.squareroot"), Theme::shared().color(ColorRole::text2));
}

} // namespace Quillstacks
