#include "QuickAccessSearchRow.h"

#include "QuickAccessMetrics.h"

#include "interface/IconButton.h"
#include "interface/Symbol.h"
#include "interface/TextField.h"
#include "interface/TextStyle.h"
#include "interface/Theme.h"

#include <QPainter>

namespace Quillstacks {

namespace {

constexpr int symbolSize = 22;
constexpr int clearSymbolSize = 20;
constexpr int gap = 12;
constexpr int fieldMargin = 2; // the field's own, before its text

} // namespace

QuickAccessSearchRow::QuickAccessSearchRow(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("QuickAccessSearchRow"));
    searchField = new TextField(QStringLiteral("Search prompts..."), TextField::Variant::plain, this);
    searchField->setObjectName(QStringLiteral("searchField"));
    searchField->setAccessibleName(QStringLiteral("Search prompts"));
    searchField->setTextStyle(TextStyle::title, QFont::Normal);
    clear = new IconButton(QStringLiteral("xmark.circle.fill"), QStringLiteral("Clear search"),
                           IconButton::Size::regular, this);
    clear->setObjectName(QStringLiteral("clearSearchButton"));
    clear->setPlain(true);
    clear->setSymbolSize(clearSymbolSize);
    clear->setColor(ColorRole::text2);
    clear->hide();
    connect(searchField, &QLineEdit::textChanged, clear,
            [this](const QString& text) { clear->setVisible(!text.isEmpty()); });
    connect(clear, &IconButton::clicked, searchField, [this] { searchField->setText(QString()); });
}

QSize QuickAccessSearchRow::sizeHint() const {
    return {200, 2 * QuickAccessMetrics::padding + textLineHeight(TextStyle::title)};
}

void QuickAccessSearchRow::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    place();
}

void QuickAccessSearchRow::place() {
    using QuickAccessMetrics::padding;
    const QSize button = clear->sizeHint();
    const int overhang = (button.width() - clearSymbolSize) / 2; // the symbol stands at the padding, not its square
    clear->setGeometry(width() - padding - clearSymbolSize - overhang, (height() - button.height()) / 2, button.width(),
                       button.height());
    const int left = padding + symbolSize + gap - fieldMargin;
    const int right = width() - padding - clearSymbolSize - gap;
    const int fieldHeight = std::max(searchField->sizeHint().height(), textLineHeight(TextStyle::title));
    searchField->setGeometry(left, (height() - fieldHeight) / 2, right - left, fieldHeight);
}

void QuickAccessSearchRow::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    Symbol::paint(painter, QRectF(QuickAccessMetrics::padding, (height() - symbolSize) / 2.0, symbolSize, symbolSize),
                  QStringLiteral("magnifyingglass"), Theme::shared().color(ColorRole::text2));
}

} // namespace Quillstacks
