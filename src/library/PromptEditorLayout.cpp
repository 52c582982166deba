// How the prompt editor is put together.
#include "analysis/AnalysisPreferences.h"
#include "analysis/LexiwellPanel.h"
#include "analysis/PromptAnalysisManager.h"
#include "foundation/Text.h"
#include "interface/Button.h"
#include "interface/Composition.h"
#include "interface/TextField.h"
#include "library/PromptEditorView.h"
#include "library/tags/TagSelectorView.h"
#include "PromptPanelColumn.h"
#include "PromptTextEditor.h"
#include "variables/VariablesPreviewView.h"

#include <QHBoxLayout>
#include <QShortcut>
#include <QVBoxLayout>

namespace Quillstacks {
namespace {

constexpr QSize smallestSize(1100, 720);
constexpr QSize idealSize(1160, 860);
constexpr int sidePadding = 24;
constexpr int columnGap = 20;
constexpr int partGap = 16;
constexpr int bodyMinimumHeight = 360;
constexpr int footerHeight = 70;

/// Title, tags and body.
class BodyColumn final : public QWidget {
public:
    explicit BodyColumn(QWidget* parent) : QWidget(parent) { setMinimumWidth(400); }
    [[nodiscard]] QSize sizeHint() const override { return {600, QWidget::sizeHint().height()}; }
};

} // namespace

Sheet::Options PromptEditorView::sheetOptions(const Prompt* edited) {
    Sheet::Options options;
    options.accessibleName = edited ? QStringLiteral("Edit Prompt") : QStringLiteral("New Prompt");
    options.minimumSize = smallestSize;
    return options;
}

QSize PromptEditorView::sizeHint() const {
    return idealSize;
}

void PromptEditorView::build() {
    auto* columns = new QHBoxLayout;
    columns->setContentsMargins(sidePadding, 20, sidePadding, 0);
    columns->setSpacing(columnGap);
    columns->addWidget(buildBodyColumn(), 1);
    columns->addWidget(buildPanels());
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addLayout(columns, 1);
    layout->addLayout(buildFooter());
}

QWidget* PromptEditorView::buildBodyColumn() {
    auto* column = new BodyColumn(this);
    auto* layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(partGap);
    layout->addLayout(buildTitleRow());
    tagSelector = new TagSelectorView(modelContext, allTags, column);
    layout->addWidget(tagSelector);
    bodyEditor = new PromptTextEditor(column);
    bodyEditor->setMinimumHeight(bodyMinimumHeight);
    layout->addWidget(bodyEditor, 1);
    return column;
}

QWidget* PromptEditorView::buildPanels() {
    variablesPreview = new VariablesPreviewView(this);
    panels = new PromptPanelColumn(this);
    panels->setVariablesPanel(variablesPreview);
    analysisManager = new PromptAnalysisManager(this);
    placeLexiwell(); // before the footer's buttons, in the order of the Tab key too
    return panels;
}

QLayout* PromptEditorView::buildTitleRow() {
    titleField = new TextField(QStringLiteral("Title"), TextField::Variant::title, this);
    titleComposition = new Composition(titleField);
    copyButton = new Button(QStringLiteral("Copy"), Button::Kind::bordered, this);
    copyButton->setSize(Button::Size::field);
    copyButton->setSymbol(QStringLiteral("doc.on.doc"));
    copyButton->setToolTip(QStringLiteral("Copy prompt to clipboard"));
    historyButton = new Button(QStringLiteral("History"), Button::Kind::bordered, this);
    historyButton->setSize(Button::Size::field);
    historyButton->setSymbol(QStringLiteral("clock.arrow.circlepath"));
    historyButton->setToolTip(QStringLiteral("View version history"));
    auto* row = new QHBoxLayout;
    row->setSpacing(8);
    row->addWidget(titleField, 1);
    row->addWidget(copyButton);
    row->addWidget(historyButton);
    return row;
}

QLayout* PromptEditorView::buildFooter() {
    deleteButton = new Button(QStringLiteral("Delete"), Button::Kind::destructive, this);
    cancelButton = new Button(QStringLiteral("Cancel"), Button::Kind::bordered, this);
    saveButton = new Button(QStringLiteral("Create"), Button::Kind::prominent, this);
    saveButton->setDefault(true);
    auto* footer = new QHBoxLayout;
    footer->setContentsMargins(sidePadding, 0, sidePadding, 0);
    footer->setSpacing(10);
    footer->addStrut(footerHeight);
    footer->addWidget(deleteButton);
    footer->addStretch();
    footer->addWidget(cancelButton);
    footer->addWidget(saveButton);
    return footer;
}

void PromptEditorView::connectParts() {
    connect(titleField, &QLineEdit::textChanged, this, [this](const QString& text) {
        titleText = text;
        refreshControls();
    });
    connect(bodyEditor, &PromptTextEditor::textChanged, this, &PromptEditorView::refreshControls);
    connect(variablesPreview, &VariablesPreviewView::collapsedChanged, panels,
            &PromptPanelColumn::setVariablesCollapsed);
    lexiwellEnabledPreference().observe(this, [this] { placeLexiwell(); });
    connect(copyButton, &QAbstractButton::clicked, this, &PromptEditorView::copyPrompt);
    connect(historyButton, &QAbstractButton::clicked, this, &PromptEditorView::showVersionHistory);
    connect(&modelContext, &ModelContext::changed, this, &PromptEditorView::refreshHistoryButton);
    connect(deleteButton, &QAbstractButton::clicked, this, &PromptEditorView::askToDelete);
    connect(cancelButton, &QAbstractButton::clicked, this, &PromptEditorView::cancel);
    connect(saveButton, &QAbstractButton::clicked, this, &PromptEditorView::savePrompt);
    // The second way to save, from the body too, where Return begins a new line.
    saveKey = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_S), this);
    saveKey->setContext(Qt::WidgetWithChildrenShortcut);
    connect(saveKey, &QShortcut::activated, this, &PromptEditorView::savePrompt);
}

void PromptEditorView::refreshControls() {
    const QString& body = editorBody();
    const bool hasBody = !Text::isBlank(body);
    const bool savable = hasBody && !Text::isBlank(titleText);
    copyButton->setVisible(prompt);
    copyButton->setEnabled(hasBody);
    deleteButton->setVisible(prompt);
    saveButton->setTitle(prompt ? QStringLiteral("Save") : QStringLiteral("Create"));
    saveButton->setEnabled(savable);
    saveKey->setEnabled(savable);
    variablesPreview->setText(body);
    if (lexiwell)
        lexiwell->setPromptEmpty(!hasBody);
}

void PromptEditorView::refreshHistoryButton() {
    historyButton->setVisible(hasHistory());
}

} // namespace Quillstacks
