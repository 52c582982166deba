#pragma once

#include "interface/ColorRole.h"

#include <QWidget>

namespace Quillstacks {

class Label;
class ReadOnlyText;

/// One of two values that differ: a short label and the value, on a tint of the label's colour.
class DiffRow final : public QWidget {
    Q_OBJECT
public:
    DiffRow(const QString& label, ColorRole color, QWidget* parent = nullptr);

    [[nodiscard]] QString label() const;
    [[nodiscard]] QString text() const;
    [[nodiscard]] ColorRole color() const { return role; }
    void setText(const QString& text);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    ColorRole role;
    Label* labelText;
    ReadOnlyText* valueText;
};

} // namespace Quillstacks
