#include "LexiwellRows.h"

#include "Greys.h"
#include "GreySymbol.h"
#include "interface/Label.h"
#include "PriorityBadge.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace Quillstacks {
namespace {

constexpr int leadWidth = 16;
constexpr int nameLine = 18;
constexpr int bulletSize = 6;

Label* wrapped(const QString& text, TextStyle style, ColorRole role) {
    auto* label = new Label(text, style, role);
    label->setMaximumLines(0);
    return label;
}

Label* nameLabel(const QString& name) {
    Label* label = wrapped(name, TextStyle::subheadline, ColorRole::text);
    label->setTextStyle(TextStyle::subheadline, QFont::Medium);
    return label;
}

/// A symbol in the middle of the first line, and a column beside it.
void arrange(QWidget* row, QWidget* symbol, QLayout* column, int spacing) {
    auto* lead = new QWidget;
    lead->setFixedSize(leadWidth, nameLine);
    auto* middle = new QHBoxLayout(lead);
    middle->setContentsMargins(0, 0, 0, 0);
    middle->addWidget(symbol, 0, Qt::AlignCenter);
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(spacing);
    layout->addWidget(lead, 0, Qt::AlignTop);
    layout->addLayout(column, 1);
}

} // namespace

TroubleshootingItem::TroubleshootingItem(const QString& icon, const QString& text, QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("TroubleshootingItem"));
    auto* column = new QVBoxLayout;
    column->addWidget(wrapped(text, TextStyle::caption, ColorRole::text2));
    arrange(this, new GreySymbol(icon, leadWidth - 1, white(0.5F)), column, leadWidth / 2);
}

StrengthRow::StrengthRow(const QString& name, const QString& description, QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("StrengthRow"));
    auto* column = new QVBoxLayout;
    column->setSpacing(0);
    column->addWidget(nameLabel(name));
    column->addWidget(wrapped(description, TextStyle::caption, ColorRole::text2));
    arrange(this, new GreySymbol(QStringLiteral("checkmark.circle.fill"), leadWidth, white(0.5F)), column, 8);
}

RecommendationRow::RecommendationRow(const QString& name, const QString& description, const QString& priority,
                                     QWidget* parent)
    : QWidget(parent) {
    setObjectName(QStringLiteral("RecommendationRow"));
    auto* first = new QHBoxLayout;
    first->setSpacing(7);
    first->addWidget(nameLabel(name));
    first->addWidget(new PriorityBadge(priority), 0, Qt::AlignVCenter);
    first->addStretch(1);
    auto* column = new QVBoxLayout;
    column->setSpacing(1);
    column->addLayout(first);
    column->addWidget(wrapped(description, TextStyle::caption, ColorRole::text2));
    arrange(this, new GreySymbol(QStringLiteral("circle.fill"), bulletSize, priorityColor(priority)), column, 8);
}

} // namespace Quillstacks
