#include "LexiwellSection.h"

#include "Greys.h"
#include "GreySymbol.h"
#include "interface/Card.h"
#include "interface/Drawing.h"
#include "interface/Label.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace Quillstacks {
namespace {

constexpr int padding = 12;
constexpr qreal radius = 8;
constexpr int symbolSize = 16;
constexpr int usualSpacing = 8;

Card::Look boxLook() {
    return {radius, [] { return withOpacity(white(0.5F), 0.05); }, [] { return withOpacity(white(0.5F), 0.15); }};
}

} // namespace

LexiwellSection::LexiwellSection(const QString& symbol, const QString& title, QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("LexiwellSection"));
    auto* heading = new Label(title, TextStyle::subheadline);
    heading->setTextStyle(TextStyle::subheadline, QFont::DemiBold);
    auto* head = new QHBoxLayout;
    head->setSpacing(usualSpacing);
    head->addWidget(new GreySymbol(symbol, symbolSize, white(0.5F)));
    head->addWidget(heading, 1);
    parts = new QVBoxLayout;
    parts->setSpacing(usualSpacing);
    auto* box = new Card(boxLook(), this);
    auto* inner = new QVBoxLayout(box);
    inner->setContentsMargins(padding, padding, padding, padding);
    inner->setSpacing(usualSpacing);
    inner->addLayout(head);
    inner->addLayout(parts);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(box);
}

void LexiwellSection::add(QWidget* widget) {
    parts->addWidget(widget);
}

void LexiwellSection::setSpacing(int spacing) {
    parts->setSpacing(spacing);
}

} // namespace Quillstacks
