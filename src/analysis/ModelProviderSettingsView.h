#pragma once

#include <QWidget>

namespace Quillstacks {

class Label;
class SegmentedPicker;

/// The choice of the model that rates prompts, and where Ollama is found. Values are stored as they are typed; nothing
/// is checked.
class ModelProviderSettingsView final : public QWidget {
    Q_OBJECT
public:
    explicit ModelProviderSettingsView(QWidget* parent = nullptr);

private:
    [[nodiscard]] QWidget* buildOllamaSection();
    void refresh();

    SegmentedPicker* picker = nullptr;
    Label* footer = nullptr;
    QWidget* ollama = nullptr;
};

} // namespace Quillstacks
