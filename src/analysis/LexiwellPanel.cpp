#include "analysis/LexiwellPanel.h"

#include "Greys.h"
#include "interface/Button.h"
#include "interface/Divider.h"
#include "interface/Drawing.h"
#include "interface/IconButton.h"
#include "interface/ScrollArea.h"
#include "LexiwellContent.h"
#include "LexiwellHelpPopover.h"
#include "LexiwellResult.h"
#include "LexiwellTitleButton.h"

#include <QKeyEvent>
#include <QScrollBar>
#include <QVBoxLayout>

#include <algorithm>
#include <array>

namespace Quillstacks {
namespace {

constexpr int headerInset = 4;
constexpr int headerHeight = 36;
constexpr int wholeHeaderHeight = headerHeight + 2 * headerInset;
constexpr int analyzeWidth = 68;

} // namespace

LexiwellPanel::LexiwellPanel(std::function<void()> analyze, QWidget* parent)
    : QWidget(parent), onAnalyze(std::move(analyze)) {
    setObjectName(QStringLiteral("LexiwellPanel"));
    scroll = new ScrollArea;
    scroll->setMinimumHeight(1); // it is squeezed away while the panel folds
    connect(scroll->verticalScrollBar(), &QScrollBar::valueChanged, this, &LexiwellPanel::showMore);
    area = new QWidget;
    auto* inner = new QVBoxLayout(area);
    inner->setContentsMargins(0, 0, 0, 0);
    inner->setSpacing(0);
    inner->addWidget(new Divider);
    inner->addWidget(scroll, 1);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(buildHeader(), 0, Qt::AlignTop);
    column->addWidget(area, 1);
    refreshHeader();
    refreshContent();
}

LexiwellPanel::~LexiwellPanel() {
    if (popover)
        popover->dismiss(); // while there is somebody to hear of it
}

QWidget* LexiwellPanel::buildHeader() {
    titleButton = new LexiwellTitleButton;
    connect(titleButton, &QAbstractButton::clicked, this, &LexiwellPanel::toggleHelpPopover);
    analyzeButton = new Button(QStringLiteral("Analyze"));
    analyzeButton->setSize(Button::Size::small);
    analyzeButton->setMinimumWidth(analyzeWidth);
    connect(analyzeButton, &QAbstractButton::clicked, this, [this] { onAnalyze(); });
    collapseButton = new IconButton(QStringLiteral("chevron.up"), QString(), IconButton::Size::row);
    collapseButton->setSymbolSize(14);
    connect(collapseButton, &QAbstractButton::clicked, this, [this] {
        setCollapsed(!collapsed);
        Q_EMIT collapsedChanged(collapsed);
    });
    auto* header = new QWidget;
    header->setFixedHeight(wholeHeaderHeight);
    auto* row = new QHBoxLayout(header);
    row->setContentsMargins(headerInset + 6, headerInset, 2 * headerInset, headerInset);
    row->setSpacing(10);
    row->addWidget(titleButton);
    row->addStretch(1);
    row->addWidget(analyzeButton);
    row->addWidget(collapseButton);
    return header;
}

bool LexiwellPanel::showingHelpPopover() const {
    return popover;
}

void LexiwellPanel::setAnalysis(const std::optional<PromptAnalysis>& analysis) {
    if (analysis == lastAnalysis)
        return;
    lastAnalysis = analysis;
    refreshContent();
}

void LexiwellPanel::setErrorMessage(const std::optional<QString>& message) {
    if (message == lastError)
        return;
    lastError = message;
    refreshContent();
}

void LexiwellPanel::setLoading(bool isLoading) {
    if (isLoading == loading)
        return;
    loading = isLoading;
    refreshHeader();
    refreshContent();
}

void LexiwellPanel::setPromptEmpty(bool isEmpty) {
    if (isEmpty == promptEmpty)
        return;
    promptEmpty = isEmpty;
    refreshHeader();
}

void LexiwellPanel::setCollapsed(bool isCollapsed) {
    collapsed = isCollapsed;
    refreshHeader();
    showArea();
    updateGeometry();
}

void LexiwellPanel::toggleHelpPopover() {
    if (popover)
        return popover->dismiss();
    popover = LexiwellHelpPopover::present(titleButton);
    connect(popover, &LexiwellHelpPopover::dismissed, this, [this] { popover = nullptr; });
}

void LexiwellPanel::refreshHeader() {
    const QString title = QStringLiteral("Analyze");
    analyzeButton->setTitle(loading ? QString() : title);
    analyzeButton->setAccessibleName(title);
    analyzeButton->setBusy(loading);
    analyzeButton->setEnabled(!loading && !promptEmpty);
    analyzeButton->setToolTip(promptEmpty ? QStringLiteral("Write a prompt to analyze")
                                          : QStringLiteral("Analyze prompt quality"));
    collapseButton->setSymbol(collapsed ? QStringLiteral("chevron.down") : QStringLiteral("chevron.up"));
    collapseButton->setHelp(collapsed ? QStringLiteral("Expand Lexiwell") : QStringLiteral("Collapse Lexiwell"));
}

// A run hides an older failure, and a failure an older result.
void LexiwellPanel::refreshContent() {
    if (loading)
        scroll->setContent(LexiwellContent::makeLoading());
    else if (lastError)
        scroll->setContent(LexiwellContent::makeError(*lastError));
    else if (lastAnalysis)
        scroll->setContent(new LexiwellResult(*lastAnalysis));
    else
        scroll->setContent(LexiwellContent::makeIdle());
    showArea();
}

// Before the end is in sight there is more to be seen.
void LexiwellPanel::showMore() {
    const QScrollBar* bar = scroll->verticalScrollBar();
    auto* result = qobject_cast<LexiwellResult*>(scroll->widget());
    if (result && bar->maximum() - bar->value() < 2 * bar->pageStep())
        result->showMore();
}

// A content that folds stays until nothing is left of its room.
void LexiwellPanel::showArea() {
    area->setVisible(!collapsed || (isVisible() && height() > wholeHeaderHeight));
}

// Nothing in the content takes the keyboard: the header's buttons leave these keys over for it.
void LexiwellPanel::keyPressEvent(QKeyEvent* event) {
    static constexpr std::array keys{Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Home, Qt::Key_End};
    if (collapsed || std::ranges::find(keys, event->key()) == keys.end())
        return QWidget::keyPressEvent(event);
    scroll->scrollByKey(event);
    event->accept();
}

void LexiwellPanel::resizeEvent(QResizeEvent*) {
    showArea();
}

QSize LexiwellPanel::sizeHint() const {
    return {QWidget::sizeHint().width(), collapsed ? wholeHeaderHeight : QWidget::sizeHint().height()};
}

QSize LexiwellPanel::minimumSizeHint() const {
    return {QWidget::minimumSizeHint().width(), wholeHeaderHeight + (collapsed ? 0 : 2)};
}

void LexiwellPanel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QRectF header(headerInset, headerInset, width() - 2 * headerInset, headerHeight);
    fillRounded(painter, header, 4, withOpacity(white(0.5F), 0.1));
}

} // namespace Quillstacks
