// How the version history is put together.
#include "DiffContent.h"
#include "EmptyHistoryView.h"
#include "interface/Button.h"
#include "interface/Divider.h"
#include "interface/Drawing.h"
#include "interface/Label.h"
#include "interface/LazyList.h"
#include "interface/ScrollArea.h"
#include "interface/SegmentedPicker.h"
#include "interface/Theme.h"
#include "library/versions/VersionHistoryView.h"
#include "PreviewContent.h"
#include "VersionRow.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QPainterPath>
#include <QVBoxLayout>

namespace Quillstacks {
namespace {

constexpr QSize sheetSize(920, 600);
constexpr qreal sheetRadius = 14;
constexpr int listWidth = 280;
constexpr int listPadding = 12;
constexpr int rowGap = 2;
constexpr int sidePadding = 24;
constexpr int pickerWidth = 200;

} // namespace

Sheet::Options VersionHistoryView::sheetOptions() {
    Sheet::Options options;
    options.accessibleName = QStringLiteral("Version History");
    options.minimumSize = sheetSize;
    options.preferredSize = sheetSize;
    options.escape = Sheet::Escape::dismisses;
    return options;
}

QSize VersionHistoryView::sizeHint() const {
    return sheetSize;
}

void VersionHistoryView::build() {
    auto* columns = new QHBoxLayout(this);
    columns->setContentsMargins(0, 0, 0, 0);
    columns->setSpacing(0);
    columns->addWidget(buildList());
    columns->addWidget(new Divider(Qt::Vertical));
    columns->addLayout(buildDetail(), 1);
}

QWidget* VersionHistoryView::buildList() {
    auto* pane = new QWidget(this);
    pane->setFixedWidth(listWidth - 1); // the divider is the column's last point
    auto* heading = new QVBoxLayout;
    heading->setContentsMargins(listPadding + 8, 20, listPadding, 14);
    heading->setSpacing(0);
    heading->addWidget(new Label(QStringLiteral("Version History"), TextStyle::headline));
    countLabel = new Label({}, TextStyle::caption, ColorRole::text2);
    heading->addWidget(countLabel);
    list = new LazyList(QStringLiteral("Versions"));
    list->setGap(rowGap);
    list->setPadding({listPadding, 0, listPadding, 20});
    emptyState = new EmptyHistoryView;
    auto* column = new QVBoxLayout(pane);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addLayout(heading);
    column->addWidget(list, 1);
    column->addWidget(emptyState, 1);
    return pane;
}

QBoxLayout* VersionHistoryView::buildDetail() {
    preview = new PreviewContent;
    diff = new DiffContent;
    auto* content = new QWidget;
    auto* stack = new QVBoxLayout(content);
    stack->setContentsMargins(0, 0, 0, 0);
    stack->addWidget(preview);
    stack->addWidget(diff);
    auto* scroll = new ScrollArea;
    scroll->setContent(content);
    auto* column = new QVBoxLayout;
    column->setSpacing(0);
    column->addLayout(buildDetailHeader());
    column->addWidget(new Divider);
    column->addWidget(scroll, 1);
    column->addWidget(new Divider);
    column->addLayout(buildFooter());
    return column;
}

QBoxLayout* VersionHistoryView::buildDetailHeader() {
    detailTitle = new Label({}, TextStyle::headline);
    detailDate = new Label({}, TextStyle::caption, ColorRole::text2);
    modePicker = new SegmentedPicker(QStringLiteral("View"),
                                     {{QStringLiteral("Preview"), QStringLiteral("doc.text")},
                                      {QStringLiteral("Diff"), QStringLiteral("arrow.left.arrow.right")}});
    modePicker->setFixedWidth(pickerWidth);
    auto* texts = new QVBoxLayout;
    texts->setSpacing(0);
    texts->addWidget(detailTitle);
    texts->addWidget(detailDate);
    auto* row = new QHBoxLayout;
    row->setContentsMargins(sidePadding, 20, sidePadding, 16);
    row->addLayout(texts, 1);
    row->addWidget(modePicker);
    return row;
}

QBoxLayout* VersionHistoryView::buildFooter() {
    closeButton = new Button(QStringLiteral("Close"), Button::Kind::bordered);
    restoreButton = new Button(QStringLiteral("Restore"), Button::Kind::prominent);
    restoreButton->setSymbol(QStringLiteral("arrow.counterclockwise"));
    restoreButton->setDefault(true);
    auto* row = new QHBoxLayout;
    row->setContentsMargins(sidePadding, 16, sidePadding, 16);
    row->setSpacing(10);
    row->addStretch(1);
    row->addWidget(closeButton);
    row->addWidget(restoreButton);
    return row;
}

void VersionHistoryView::connectParts() {
    LazyList::Source source;
    source.count = [this] { return static_cast<int>(sorted.size()) + 1; };
    source.height = [](int, int) { return VersionRow::rowHeight(); };
    source.make = [](int, QWidget* parent) { return new VersionRow(parent); };
    source.bind = [this](QWidget* row, int index) { bindRow(row, index); };
    source.isSelected = [this](int index) { return index == selectedRow(); };
    list->setSource(std::move(source));
    list->setKeyHandler([this](QKeyEvent* event) { return handleKey(*event); });
    connect(list, &LazyList::clicked, this, [this](int row) { select(versionAt(row)); });
    connect(modePicker, &SegmentedPicker::selectionChanged, this,
            [this](int index) { setViewMode(static_cast<ViewMode>(index)); });
    connect(closeButton, &QAbstractButton::clicked, this, &VersionHistoryView::closeHistory);
    connect(restoreButton, &QAbstractButton::clicked, this, &VersionHistoryView::askToRestore);
    connect(&modelContext, &ModelContext::changed, this, &VersionHistoryView::contextChanged);
    connect(&Theme::shared(), &Theme::changed, this, qOverload<>(&QWidget::update));
}

void VersionHistoryView::paintEvent(QPaintEvent*) {
    const Theme& theme = Theme::shared();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterPath sheet;
    sheet.addRoundedRect(rect(), sheetRadius, sheetRadius);
    QPainterPath pane;
    pane.addRect(0, 0, listWidth - 1, height());
    painter.fillPath(pane.intersected(sheet), theme.isDark() ? withOpacity(Qt::black, .10) : theme.ink(.025));
}

} // namespace Quillstacks
