// The widgets of the fill-in sheet; its rules are in VariableSubstitutionView.cpp.
#include "FilledTextPreview.h"
#include "VariableInputField.h"
#include "VariableSubstitutionView.h"

#include "interface/Button.h"
#include "interface/Divider.h"
#include "interface/IconButton.h"
#include "interface/Label.h"
#include "interface/ScrollArea.h"
#include "interface/Symbol.h"
#include "interface/Theme.h"

#include <QPainter>
#include <QVBoxLayout>

#include <utility>

namespace Quillstacks {

namespace {

constexpr int sheetWidth = 520;
constexpr int padding = 20;
constexpr int fieldGap = 15;
constexpr QRect symbolBox(padding, padding + 2, 26, 26);
constexpr int symbolGap = 14;
constexpr int greatestListHeight = 400;
constexpr int smallestListHeight = 72; // a field and its label

} // namespace

VariableSubstitutionView::VariableSubstitutionView(QString title, QString body, QStringList names,
                                                   QHash<QString, QString> initialValues,
                                                   std::function<void(const QString&)> completion,
                                                   std::function<void()> cancellation, QWidget* parent)
    : QWidget(parent), promptTitle(std::move(title)), promptBody(std::move(body)), variables(std::move(names)),
      values(std::move(initialValues)), onComplete(std::move(completion)), onCancel(std::move(cancellation)) {
    setObjectName(QStringLiteral("VariableSubstitutionView"));
    setFixedWidth(sheetWidth);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    buildHeader(column);
    buildCountRow(column);
    column->addWidget(new Divider);
    buildFields(column);
    column->addWidget(new Divider);
    preview = new FilledTextPreview;
    column->addWidget(preview);
    previewDivider = new Divider;
    previewDivider->hide();
    column->addWidget(previewDivider);
    buildFooter(column);
    refresh();
}

void VariableSubstitutionView::buildHeader(QBoxLayout* column) {
    auto* heading = new Label(QStringLiteral("Fill in Variables"), TextStyle::title3);
    heading->setTextStyle(TextStyle::title3, QFont::DemiBold);
    auto* subtitle =
        new Label(QStringLiteral("for \"") + promptTitle + QLatin1Char('"'), TextStyle::subheadline, ColorRole::text2);
    auto* close = new IconButton(QStringLiteral("xmark.circle.fill"), QStringLiteral("Cancel"));
    close->setObjectName(QStringLiteral("closeButton"));
    close->setPlain(true);
    close->setSymbolSize(20);
    close->setColor(ColorRole::text2);
    connect(close, &IconButton::clicked, this, &VariableSubstitutionView::cancel);

    auto* texts = new QVBoxLayout;
    texts->setSpacing(1);
    texts->addWidget(heading);
    texts->addWidget(subtitle);
    auto* row = new QHBoxLayout;
    // The button's square reaches beyond its symbol, which is what stands in line with the padding.
    const int overhang = (close->sizeHint().width() - 20) / 2;
    row->setContentsMargins(symbolBox.right() + 1 + symbolGap, padding - overhang, padding - overhang, padding);
    texts->insertSpacing(0, overhang);
    row->addLayout(texts, 1);
    row->addWidget(close, 0, Qt::AlignTop);
    column->addLayout(row);
}

void VariableSubstitutionView::buildCountRow(QBoxLayout* column) {
    auto* clearButton = new Button(QStringLiteral("Clear"), Button::Kind::borderless);
    clearButton->setObjectName(QStringLiteral("clearButton"));
    clearButton->setSize(Button::Size::small);
    clearButton->setSymbol(QStringLiteral("xmark.circle"), 14);
    clearButton->setToolTip(QStringLiteral("Clear all fields"));
    connect(clearButton, &Button::clicked, this, &VariableSubstitutionView::clear);

    auto* row = new QHBoxLayout;
    row->setContentsMargins(padding, padding, padding - 8, padding);
    row->addWidget(new Label(countText(), TextStyle::subheadline, ColorRole::text2), 1);
    row->addWidget(clearButton);
    column->addLayout(row);
}

void VariableSubstitutionView::buildFields(QBoxLayout* column) {
    auto* list = new QWidget;
    auto* rows = new QVBoxLayout(list);
    rows->setContentsMargins(padding, padding, padding, padding);
    rows->setSpacing(fieldGap);
    for (const QString& variable : variables) {
        auto* field = new VariableInputField(variable, values.value(variable));
        field->onFocus = [this, variable] { focused = variable; };
        field->onSubmit = [this, variable] { submit(variable); };
        connect(field, &VariableInputField::valueChanged, this,
                [this, variable](const QString& value) { takeOver(variable, value); });
        fields.append(field);
        rows->addWidget(field);
    }
    rows->addStretch();
    auto* area = new ScrollArea;
    area->setObjectName(QStringLiteral("fieldList"));
    area->setContent(list);
    area->setFocusPolicy(Qt::NoFocus);
    area->setMaximumHeight(greatestListHeight);
    area->setMinimumHeight(smallestListHeight);
    column->addWidget(area, 1);
}

void VariableSubstitutionView::buildFooter(QBoxLayout* column) {
    previewButton = new Button(QStringLiteral("Show Preview"), Button::Kind::borderless);
    previewButton->setObjectName(QStringLiteral("previewButton"));
    previewButton->setTextColor(ColorRole::text2);
    connect(previewButton, &Button::clicked, this, &VariableSubstitutionView::togglePreview);
    auto* cancelButton = new Button(QStringLiteral("Cancel"));
    cancelButton->setObjectName(QStringLiteral("cancelButton"));
    connect(cancelButton, &Button::clicked, this, &VariableSubstitutionView::cancel);
    copyButton = new Button(QStringLiteral("Copy"), Button::Kind::prominent);
    copyButton->setObjectName(QStringLiteral("copyButton"));
    copyButton->setDefault(true);
    connect(copyButton, &Button::clicked, this, &VariableSubstitutionView::complete);

    auto* row = new QHBoxLayout;
    row->setContentsMargins(padding - 12, padding, padding, padding);
    row->setSpacing(10);
    row->addWidget(previewButton);
    row->addStretch();
    row->addWidget(cancelButton);
    row->addWidget(copyButton);
    column->addLayout(row);
}

void VariableSubstitutionView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    Symbol::paint(painter, symbolBox, QStringLiteral("curlybraces"), Theme::shared().color(ColorRole::blue));
}

void VariableSubstitutionView::togglePreview() {
    previewShown = !previewShown;
    refresh();
    preview->setOpen(previewShown);
}

void VariableSubstitutionView::refresh() {
    copyButton->setEnabled(allVariablesFilled());
    previewButton->setTitle(previewShown ? QStringLiteral("Hide Preview") : QStringLiteral("Show Preview"));
    previewButton->setSymbol(previewShown ? QStringLiteral("eye.slash") : QStringLiteral("eye"), 16);
    previewDivider->setVisible(previewShown);
    // Only while it can be seen: the text may be long, and every key press comes here.
    if (previewShown)
        preview->setText(filledText());
}

} // namespace Quillstacks
