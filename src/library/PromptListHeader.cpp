#include "PromptListHeader.h"

#include "interface/Button.h"
#include "interface/Label.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace Quillstacks {

PromptListHeader::PromptListHeader(QWidget* parent)
    : QWidget(parent), count(new Label(QString(), TextStyle::caption, ColorRole::text2, this)),
      newButton(new Button(QStringLiteral("New Prompt"), Button::Kind::bordered, this)),
      deleteButton(new Button(QStringLiteral("Delete"), Button::Kind::destructive, this)) {
    setObjectName(QStringLiteral("PromptListHeader"));
    setFixedHeight(64);
    auto* title = new Label(QStringLiteral("Prompts"), TextStyle::title3, ColorRole::text, this);
    title->setTextStyle(TextStyle::title3, QFont::DemiBold);
    newButton->setSymbol(QStringLiteral("plus"), 14);
    deleteButton->setSymbol(QStringLiteral("trash"), 15);
    deleteButton->setToolTip(QStringLiteral("Delete Selected Prompt"));
    count->hide();

    auto* texts = new QVBoxLayout;
    texts->setContentsMargins(0, 0, 0, 0);
    texts->setSpacing(0);
    texts->addStretch();
    texts->addWidget(title);
    texts->addWidget(count);
    texts->addStretch();
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(28, 0, 20, 0);
    layout->setSpacing(8);
    layout->addLayout(texts, 1);
    layout->addWidget(newButton);
    layout->addWidget(deleteButton);
    connect(newButton, &QAbstractButton::clicked, this, &PromptListHeader::newPromptRequested);
    connect(deleteButton, &QAbstractButton::clicked, this, &PromptListHeader::deleteRequested);
}

void PromptListHeader::setCount(const QString& text) {
    count->setText(text);
    count->setVisible(!text.isEmpty());
}

void PromptListHeader::setDeleteEnabled(bool enabled) {
    deleteButton->setEnabled(enabled);
}

} // namespace Quillstacks
