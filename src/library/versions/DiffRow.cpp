#include "DiffRow.h"

#include "interface/Drawing.h"
#include "interface/Label.h"
#include "interface/Theme.h"
#include "ReadOnlyText.h"

#include <QHBoxLayout>
#include <QPainter>

namespace Quillstacks {
namespace {

constexpr int labelWidth = 40;
constexpr int labelDrop = 3; ///< brings the label's base line to the text's
constexpr qreal tintOpacity = 0.1;
constexpr qreal radius = 6;
constexpr int paddingX = 10;
constexpr int paddingY = 8;
constexpr int mostLines = 3;

} // namespace

DiffRow::DiffRow(const QString& label, ColorRole color, QWidget* parent) : QWidget(parent), role(color) {
    setObjectName(QStringLiteral("DiffRow"));
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    const ReadOnlyText::Shape shape{.minimumLines = mostLines, .maximumLines = mostLines, .padding = {}};
    const int drop = ReadOnlyText::drop(shape);
    labelText = new Label(label, TextStyle::caption, color);
    labelText->setTextStyle(TextStyle::caption, QFont::DemiBold);
    labelText->setFixedWidth(labelWidth);
    labelText->setContentsMargins(0, labelDrop + drop, 0, 0);
    valueText = new ReadOnlyText(label, shape);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(paddingX, paddingY - drop, paddingX, paddingY + drop);
    row->setSpacing(8);
    row->addWidget(labelText, 0, Qt::AlignTop);
    row->addWidget(valueText, 1);
}

QString DiffRow::label() const {
    return labelText->text();
}

QString DiffRow::text() const {
    return valueText->content();
}

void DiffRow::setText(const QString& text) {
    valueText->setContent(text);
}

void DiffRow::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    fillRounded(painter, rect(), radius, Theme::shared().tint(role, tintOpacity));
}

} // namespace Quillstacks
