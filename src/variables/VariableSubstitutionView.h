#pragma once

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>
#include <QWidget>

#include <functional>
#include <optional>

class QBoxLayout;

namespace Quillstacks {

class Button;
class FilledTextPreview;
class VariableInputField;

/// The content of the fill-in sheet: a field for each variable of a prompt. It never touches the clipboard, but hands
/// the filled text to its caller. Use presentFillIn() to show it.
class VariableSubstitutionView final : public QWidget {
    Q_OBJECT
public:
    VariableSubstitutionView(QString promptTitle, QString promptBody, QStringList variables,
                             QHash<QString, QString> variableValues, std::function<void(const QString&)> onComplete,
                             std::function<void()> onCancel, QWidget* parent = nullptr);
    ~VariableSubstitutionView() override;
    Q_DISABLE_COPY_MOVE(VariableSubstitutionView)

    const QString promptTitle;
    const QString promptBody;
    const QStringList variables;

    /// The values typed so far, by variable.
    [[nodiscard]] const QHash<QString, QString>& variableValues() const { return values; }
    void setVariableValue(const QString& variable, const QString& value);
    /// The variable whose field has the keyboard, or had it last.
    [[nodiscard]] const std::optional<QString>& focusedField() const { return focused; }
    void setFocusedField(const QString& variable);
    [[nodiscard]] bool showPreview() const { return previewShown; }

    [[nodiscard]] QString filledText() const;
    /// Whether no value is blank.
    [[nodiscard]] bool allVariablesFilled() const;
    /// "2 variables detected in this prompt"
    [[nodiscard]] QString countText() const;

    /// Return in a variable's field: on to the next one, or complete() from the last.
    void submit(const QString& variable);
    /// Remembers the values and hands the filled text over; does nothing while a value is blank.
    void complete();
    /// Empties every field; what is remembered stays.
    void clear();
    void cancel();
    void togglePreview();

    /// The field of a variable; nullptr for a name that has none.
    [[nodiscard]] VariableInputField* inputField(const QString& variable) const;

protected:
    void showEvent(QShowEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void buildHeader(QBoxLayout* column);
    void buildCountRow(QBoxLayout* column);
    void buildFields(QBoxLayout* column);
    void buildFooter(QBoxLayout* column);
    void takeOver(const QString& variable, const QString& value);
    void refresh();

    QHash<QString, QString> values;
    std::optional<QString> focused;
    bool previewShown = false;
    std::function<void(const QString&)> onComplete;
    std::function<void()> onCancel;
    bool hasAppeared = false;
    bool isClearing = false;
    bool isLeft = false; ///< one of the callbacks was called

    QList<VariableInputField*> fields;
    FilledTextPreview* preview = nullptr;
    QWidget* previewDivider = nullptr;
    Button* previewButton = nullptr;
    Button* copyButton = nullptr;
};

} // namespace Quillstacks
