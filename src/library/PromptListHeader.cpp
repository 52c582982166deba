#include "PromptListHeader.h"

#include "interface/Button.h"
#include "interface/Divider.h"
#include "interface/Label.h"
#include "interface/TextStyle.h"
#include "interface/Theme.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include <algorithm>

namespace Quillstacks {
namespace {

constexpr int usualHeight = 64;
constexpr int smallestPadding = 16; ///< above and below together
constexpr int smallestButton = 44;
constexpr int dividerHeight = 20;

} // namespace

PromptListHeader::PromptListHeader(QWidget* parent)
    : QWidget(parent), title(new Label(QStringLiteral("Prompts"), TextStyle::title3, ColorRole::text, this)),
      count(new Label(QString(), TextStyle::caption, ColorRole::text2, this)),
      newButton(new Button(QStringLiteral("New Prompt"), Button::Kind::bordered, this)),
      deleteButton(new Button(QStringLiteral("Delete"), Button::Kind::destructive, this)), lastStop(deleteButton) {
    setObjectName(QStringLiteral("PromptListHeader"));
    title->setTextStyle(TextStyle::title3, QFont::DemiBold);
    newButton->setSymbol(QStringLiteral("plus"), 14);
    deleteButton->setSymbol(QStringLiteral("trash"), 15);
    deleteButton->setToolTip(QStringLiteral("Delete Selected Prompt"));
    count->hide();
    for (Button* button : {newButton, deleteButton})
        button->setMinimumWidth(smallestButton);

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
    fitFont();
    connect(&Theme::shared(), &Theme::changed, this, &PromptListHeader::fitFont);
    connect(newButton, &QAbstractButton::clicked, this, &PromptListHeader::newPromptRequested);
    connect(deleteButton, &QAbstractButton::clicked, this, &PromptListHeader::deleteRequested);
}

void PromptListHeader::fitFont() {
    const int texts = textLineHeight(TextStyle::title3) + textLineHeight(TextStyle::caption);
    setFixedHeight(std::max({usualHeight, texts + smallestPadding, newButton->sizeHint().height() + smallestPadding}));
    // In a narrow window the buttons give way, not the title.
    title->setMinimumWidth(title->sizeHint().width());
}

void PromptListHeader::setCount(const QString& text) {
    count->setText(text);
    count->setVisible(!text.isEmpty());
}

void PromptListHeader::addWindowItem(QWidget* item) {
    if (!windowItems) {
        auto* line = new Divider(Qt::Vertical, ColorRole::separatorStrong, this);
        line->setFixedHeight(dividerHeight);
        windowItems = new QHBoxLayout;
        windowItems->setContentsMargins(6, 0, 0, 0);
        windowItems->setSpacing(8);
        windowItems->addWidget(line, 0, Qt::AlignVCenter);
        windowItems->addSpacing(6);
        static_cast<QHBoxLayout*>(layout())->addLayout(windowItems);
    }
    windowItems->addWidget(item);
    // It was made after the list, and would be reached after it.
    setTabOrder(lastStop, item);
    lastStop = item;
}

void PromptListHeader::setDeleteEnabled(bool enabled) {
    deleteButton->setEnabled(enabled);
}

} // namespace Quillstacks
