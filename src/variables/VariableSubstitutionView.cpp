#include "VariableSubstitutionView.h"

#include "FilledTextPreview.h"
#include "VariableInputField.h"
#include "VariablePreferences.h"

#include "foundation/MainQueue.h"
#include "foundation/Text.h"
#include "variables/engine/VariableEngine.h"

#include <algorithm>
#include <utility>

namespace Quillstacks {

namespace {
constexpr double focusDelay = 0.1; // the field can't take the keyboard before it is on screen
}

VariableSubstitutionView::~VariableSubstitutionView() = default;

void VariableSubstitutionView::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (std::exchange(hasAppeared, true) || variables.isEmpty())
        return;
    MainQueue::after(focusDelay, this, [this] {
        // Who went on to another field meanwhile stays there.
        if (!focused || *focused == variables.first())
            setFocusedField(variables.first());
    });
}

void VariableSubstitutionView::setVariableValue(const QString& variable, const QString& value) {
    if (auto* field = inputField(variable))
        field->setValue(value);
}

void VariableSubstitutionView::takeOver(const QString& variable, const QString& value) {
    values.insert(variable, value);
    if (!isClearing)
        refresh();
}

void VariableSubstitutionView::setFocusedField(const QString& variable) {
    focused = variable;
    if (auto* field = inputField(variable))
        field->takeFocus();
}

QString VariableSubstitutionView::filledText() const {
    return substituteVariables(promptBody, variables, values);
}

bool VariableSubstitutionView::allVariablesFilled() const {
    return std::none_of(variables.begin(), variables.end(),
                        [this](const QString& variable) { return Text::isBlank(values.value(variable)); });
}

QString VariableSubstitutionView::countText() const {
    const QString plural = variables.size() == 1 ? QString() : QStringLiteral("s");
    return QString::number(variables.size()) + QStringLiteral(" variable") + plural +
           QStringLiteral(" detected in this prompt");
}

void VariableSubstitutionView::submit(const QString& variable) {
    const auto position = variables.indexOf(variable);
    if (position >= 0 && position + 1 < variables.size())
        setFocusedField(variables.at(position + 1));
    else
        complete();
}

void VariableSubstitutionView::complete() {
    if (isLeft || !allVariablesFilled())
        return;
    isLeft = true;
    {
        const Preferences::Batch batch(Preferences::standard());
        for (const QString& variable : variables)
            rememberValue(variable, values.value(variable));
    }
    if (onComplete)
        onComplete(filledText());
}

void VariableSubstitutionView::clear() {
    isClearing = true; // what follows from the values is worked out once for all of them
    for (const QString& variable : variables)
        setVariableValue(variable, QString());
    isClearing = false;
    refresh();
    if (!variables.isEmpty())
        setFocusedField(variables.first());
}

void VariableSubstitutionView::cancel() {
    if (std::exchange(isLeft, true))
        return;
    if (onCancel)
        onCancel();
}

VariableInputField* VariableSubstitutionView::inputField(const QString& variable) const {
    const auto found = std::find_if(fields.begin(), fields.end(),
                                    [&](const VariableInputField* field) { return field->variable == variable; });
    return found == fields.end() ? nullptr : *found;
}

} // namespace Quillstacks
