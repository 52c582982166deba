#pragma once

#include "interface/Transition.h"

#include <QWidget>

#include <functional>

namespace Quillstacks {

class TextArea;

/// The name of a variable and the field for its value. Return submits; with Shift, Ctrl or Alt it begins a new line.
class VariableInputField final : public QWidget {
    Q_OBJECT
public:
    VariableInputField(const QString& variable, const QString& value, QWidget* parent = nullptr);
    ~VariableInputField() override;
    Q_DISABLE_COPY_MOVE(VariableInputField)

    const QString variable;
    /// The field took the keyboard.
    std::function<void()> onFocus;
    /// Return was pressed in the field.
    std::function<void()> onSubmit;

    [[nodiscard]] QString placeholder() const;
    /// As typed, every character and line end kept.
    [[nodiscard]] const QString& value() const { return currentValue; }
    /// Can be undone in the field.
    void setValue(const QString& value);
    /// Whether the value holds more than white space, which the check mark shows.
    [[nodiscard]] bool isFilled() const;
    [[nodiscard]] bool isTextFieldFocused() const;
    [[nodiscard]] bool isHovered() const;
    /// Gives the field the keyboard.
    void takeFocus();

Q_SIGNALS:
    void valueChanged(const QString& value);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void buildField(const QString& value);
    void placeField();
    void takeOverText();
    void describe();
    [[nodiscard]] bool handleReturn(int modifiers);

    QString currentValue;
    TextArea* field = nullptr;
    Transition check; ///< how far the check mark has come
};

} // namespace Quillstacks
