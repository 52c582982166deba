#include "library/tags/TagEditorView.h"

#include "ColorDot.h"
#include "FlexibleColorGrid.h"
#include "foundation/Clock.h"
#include "foundation/Log.h"
#include "foundation/Text.h"
#include "interface/Button.h"
#include "interface/ColorFromHex.h"
#include "interface/Composition.h"
#include "interface/Divider.h"
#include "interface/Label.h"
#include "interface/TextField.h"
#include "TagPalette.h"

#include <QHBoxLayout>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <algorithm>

namespace Quillstacks {
namespace {

constexpr int smallestWidth = 360;
constexpr int padding = 16;
constexpr int dotDiameter = 20;
constexpr int namePadding = 6;
/// What the toolkit keeps free on both sides of a field's text.
constexpr int fieldMargin = 2;
/// The outer columns' swatches stand flush with the heading above them.
constexpr int gridPadding = padding - 6;

QString quoted(const QString& text) {
    return QLatin1Char('\'') + text + QLatin1Char('\'');
}

} // namespace

TagEditorView::TagEditorView(ModelContext& context, Tag* initialTag, std::function<void(Tag*)> saved, QWidget* parent)
    : QWidget(parent), modelContext(context), onSave(std::move(saved)), tag(initialTag) {
    setObjectName(QStringLiteral("TagEditorView"));
    build();
    connectParts();
    setName(tag ? tag->name() : QString());
    setColorHex(tag ? tag->colorHex() : TagPalette::firstColor());
}

Sheet* TagEditorView::present(QWidget* host, ModelContext& context, Tag* initialTag, std::function<void(Tag*)> saved) {
    auto content = std::make_unique<TagEditorView>(context, initialTag, std::move(saved));
    TagEditorView* editor = content.get();
    Sheet::Options options;
    options.accessibleName = initialTag ? QStringLiteral("Edit Tag") : QStringLiteral("New Tag");
    options.minimumSize = QSize(smallestWidth, 0);
    Sheet* sheet = Sheet::present(host, std::move(content), std::move(options));
    connect(editor, &TagEditorView::closed, sheet, &Sheet::dismiss);
    return sheet;
}

QSize TagEditorView::sizeHint() const {
    const QSize hint = QWidget::sizeHint();
    return {std::max(hint.width(), smallestWidth), hint.height()};
}

void TagEditorView::build() {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, padding);
    column->setSpacing(0);
    column->addLayout(buildNameRow());
    column->addWidget(new Divider(Qt::Horizontal, ColorRole::separator, this));
    column->addLayout(buildColors());
    column->addStretch();
    column->addLayout(buildFooter());
}

QLayout* TagEditorView::buildNameRow() {
    dot = new ColorDot(dotDiameter, this);
    nameField = new TextField(QStringLiteral("Tag name"), TextField::Variant::plain, this);
    nameField->setTextStyle(TextStyle::title3);
    nameComposition = new Composition(nameField);
    auto* row = new QHBoxLayout;
    row->setContentsMargins(padding, padding + namePadding, padding + namePadding - fieldMargin, 10 + namePadding);
    row->setSpacing(10 + namePadding - fieldMargin);
    row->addWidget(dot);
    row->addWidget(nameField, 1);
    return row;
}

QLayout* TagEditorView::buildColors() {
    auto* heading = new Label(QStringLiteral("Color"), TextStyle::subheadline, ColorRole::text2, this);
    heading->setTextStyle(TextStyle::subheadline, QFont::DemiBold);
    grid = new FlexibleColorGrid(TagPalette::colors(), this);
    auto* headingRow = new QHBoxLayout;
    headingRow->setContentsMargins(padding, padding, padding, 10);
    headingRow->addWidget(heading);
    auto* gridRow = new QHBoxLayout;
    gridRow->setContentsMargins(gridPadding, 0, gridPadding, 24);
    gridRow->addWidget(grid);
    auto* column = new QVBoxLayout;
    column->setSpacing(0);
    column->addLayout(headingRow);
    column->addLayout(gridRow);
    return column;
}

QLayout* TagEditorView::buildFooter() {
    cancelButton = new Button(QStringLiteral("Cancel"), Button::Kind::bordered, this);
    saveButton = new Button(tag ? QStringLiteral("Save") : QStringLiteral("Create"), Button::Kind::prominent, this);
    saveButton->setDefault(true);
    auto* footer = new QHBoxLayout;
    footer->setContentsMargins(padding, 0, padding, 0);
    footer->setSpacing(10);
    footer->addStretch();
    footer->addWidget(cancelButton);
    footer->addWidget(saveButton);
    return footer;
}

void TagEditorView::connectParts() {
    connect(nameField, &QLineEdit::textChanged, this, [this](const QString& text) {
        nameText = text;
        refreshControls();
    });
    connect(grid, &FlexibleColorGrid::selectionChanged, this, &TagEditorView::setColorHex);
    connect(cancelButton, &QAbstractButton::clicked, this, &TagEditorView::cancel);
    connect(saveButton, &QAbstractButton::clicked, this, &TagEditorView::saveTag);
}

void TagEditorView::refreshControls() {
    saveButton->setEnabled(canSave());
}

void TagEditorView::setName(const QString& name) {
    // Kept beside the field, so that a name that was never typed here comes back exactly as it is stored.
    nameText = name;
    const QSignalBlocker blocker(nameField);
    nameField->setText(name);
    refreshControls();
}

void TagEditorView::setColorHex(const QString& colorHex) {
    colorText = colorHex;
    dot->setColor(colorFromHex(colorText));
    grid->setSelection(colorText);
}

bool TagEditorView::canSave() const {
    return !Text::isBlank(nameText);
}

bool TagEditorView::holdsUnsavedTyping() const {
    return nameComposition->isActive() || nameText != (tag ? tag->name() : QString());
}

void TagEditorView::saveTag() {
    nameComposition->commit();
    const QString trimmedName = Text::trimmed(nameText).toString();
    if (trimmedName.isEmpty())
        return;
    // A tag that is gone can't take the name any more: it is kept as a new one.
    if (tag && !tag->isDeleted())
        updateExisting(trimmedName);
    else
        createNew(trimmedName);
    saveContext();
    Q_EMIT closed();
}

void TagEditorView::updateExisting(const QString& trimmedName) {
    Log::data.info(QStringLiteral("Updating tag: ") + quoted(trimmedName));
    tag->setName(trimmedName);
    tag->setColorHex(colorText);
    tag->setUpdatedAt(Clock::now());
}

void TagEditorView::createNew(const QString& trimmedName) {
    Log::data.info(QStringLiteral("Creating new tag: ") + quoted(trimmedName));
    Tag* created = modelContext.insert(std::make_unique<Tag>(trimmedName, colorText));
    if (onSave)
        onSave(created);
}

void TagEditorView::saveContext() {
    try {
        modelContext.save();
        Log::data.info(QStringLiteral("Tag saved successfully"));
    } catch (const std::exception& error) {
        Log::logDataError(QStringLiteral("saving tag"), error);
    }
}

void TagEditorView::cancel() {
    Q_EMIT closed();
}

} // namespace Quillstacks
