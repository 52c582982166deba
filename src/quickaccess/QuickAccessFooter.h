#pragma once

#include <QWidget>

namespace Quillstacks {

class FillVariablesToggle;

/// The key hints at the bottom of quick access, and the toggle among them.
class QuickAccessFooter final : public QWidget {
    Q_OBJECT
public:
    explicit QuickAccessFooter(QWidget* parent = nullptr);

    [[nodiscard]] FillVariablesToggle* toggle() const { return fillVariables; }

private:
    [[nodiscard]] QWidget* hint(const QString& keys, const QString& text);

    FillVariablesToggle* fillVariables = nullptr;
};

} // namespace Quillstacks
