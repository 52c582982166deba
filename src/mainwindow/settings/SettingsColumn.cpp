#include "SettingsColumn.h"

#include "interface/Card.h"
#include "interface/Divider.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace Quillstacks {
namespace {

constexpr int sidePadding = 32;
constexpr int endPadding = 40;
/// So that the first card's edge and shadow are not cut.
constexpr int topPadding = 4;
constexpr int itemGap = 24;
constexpr int rowGap = 20;
constexpr int cardPadding = 20;

Card* makeCard(std::initializer_list<QWidget*> groups) {
    auto* card = new Card;
    auto* column = new QVBoxLayout(card);
    column->setContentsMargins(cardPadding, cardPadding, cardPadding, cardPadding);
    column->setSpacing(itemGap);
    for (QWidget* group : groups) {
        if (column->count() > 0)
            column->addWidget(new Divider);
        column->addWidget(group);
    }
    return card;
}

} // namespace

SettingsColumn::SettingsColumn(QWidget* parent) : QWidget(parent), items(new QVBoxLayout) {
    items->setSpacing(itemGap);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(sidePadding, topPadding, sidePadding, endPadding);
    layout->setSpacing(0);
    layout->addLayout(items);
    layout->addStretch(1); // before any stretch within a card
}

void SettingsColumn::addCard(std::initializer_list<QWidget*> groups) {
    items->addWidget(makeCard(groups));
}

void SettingsColumn::addRow(std::initializer_list<QWidget*> groups) {
    auto* row = new QHBoxLayout;
    row->setSpacing(rowGap);
    for (QWidget* group : groups)
        row->addWidget(makeCard({group}), 1);
    items->addLayout(row);
}

} // namespace Quillstacks
