#include "analysis/ModelProviderSettingsView.h"

#include "analysis/AnalysisPreferences.h"
#include "interface/Divider.h"
#include "interface/Label.h"
#include "interface/SegmentedPicker.h"
#include "interface/TextField.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace Quillstacks {
namespace {

constexpr int pickerWidth = 320;

Label* caption(const QString& text) {
    auto* label = new Label(text, TextStyle::caption, ColorRole::text2);
    label->setMaximumLines(0);
    return label;
}

std::vector<SegmentedPicker::Segment> segments() {
    std::vector<SegmentedPicker::Segment> result;
    for (const ModelProviderType type : allModelProviderTypes)
        result.push_back({RawValue<ModelProviderType>::rawValue(type), {}});
    return result;
}

/// A field under a small title, bound to a preference.
QLayout* makeField(const QString& title, const QString& placeholder, const StoredPreference<QString>& preference) {
    auto* label = new Label(title, TextStyle::caption);
    label->setTextStyle(TextStyle::caption, QFont::Medium);
    auto* field = new TextField(placeholder);
    field->setAccessibleName(title);
    field->setText(preference.value());
    field->setCursorPosition(0);
    QObject::connect(field, &QLineEdit::textChanged, field,
                     [&preference](const QString& text) { preference.set(text); });
    preference.observe(field, [field, &preference] {
        if (field->text() != preference.value())
            field->setText(preference.value());
    });
    auto* column = new QVBoxLayout;
    column->setSpacing(5);
    column->addWidget(label);
    column->addWidget(field);
    return column;
}

} // namespace

ModelProviderSettingsView::ModelProviderSettingsView(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("ModelProviderSettingsView"));
    const QString title = QStringLiteral("AI Provider");
    picker = new SegmentedPicker(title, segments());
    picker->setFixedWidth(std::max(pickerWidth, picker->sizeHint().width()));
    connect(picker, &SegmentedPicker::selectionChanged, this, [](int index) {
        selectedModelProviderPreference().set(allModelProviderTypes.at(static_cast<std::size_t>(index)));
    });
    auto* choice = new QHBoxLayout;
    choice->addWidget(new Label(title), 1);
    choice->addWidget(picker);
    footer = caption({});
    ollama = buildOllamaSection();
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(new Label(QStringLiteral("Model Provider"), TextStyle::headline));
    column->addSpacing(12);
    column->addLayout(choice);
    column->addSpacing(8);
    column->addWidget(footer);
    column->addWidget(ollama);
    selectedModelProviderPreference().observe(this, [this] { refresh(); });
    refresh();
}

QWidget* ModelProviderSettingsView::buildOllamaSection() {
    auto* fields = new QHBoxLayout;
    fields->setSpacing(16);
    fields->addLayout(makeField(QStringLiteral("Server URL"), QStringLiteral("e.g., http://localhost:11434"),
                                ollamaBaseURLPreference()),
                      1);
    fields->addLayout(
        makeField(QStringLiteral("Model Name"), QStringLiteral("e.g., llama3.2"), ollamaModelPreference()), 1);
    auto* lines = new QVBoxLayout;
    lines->setSpacing(2);
    for (const char* line : {"Enter the Ollama server URL and model name.",
                             "Common models: llama3.2, llama3.1, mistral, mixtral, codellama",
                             "Make sure Ollama is running and the model is downloaded."})
        lines->addWidget(caption(QLatin1String(line)));
    auto* section = new QWidget;
    section->setObjectName(QStringLiteral("OllamaConfiguration"));
    auto* column = new QVBoxLayout(section);
    column->setContentsMargins(0, 16, 0, 0);
    column->setSpacing(0);
    column->addWidget(new Divider);
    column->addSpacing(16);
    column->addWidget(new Label(QStringLiteral("Ollama Configuration"), TextStyle::headline));
    column->addSpacing(12);
    column->addLayout(fields);
    column->addSpacing(10);
    column->addLayout(lines);
    return section;
}

void ModelProviderSettingsView::refresh() {
    const ModelProviderType selected = selectedModelProviderPreference().value();
    const bool usesOllama = selected == ModelProviderType::ollama;
    picker->setSelection(static_cast<int>(selected));
    footer->setText(usesOllama
                        ? QStringLiteral("Uses Ollama for local model inference. Requires Ollama to be installed and "
                                         "running.")
                        : QStringLiteral("Uses Apple's on-device intelligence. Requires macOS 15.1+ and a compatible "
                                         "Mac."));
    ollama->setVisible(usesOllama);
}

} // namespace Quillstacks
