#include "FillInFlow.h"

#include "VariablePreferences.h"
#include "VariableSubstitutionView.h"

#include "interface/Sheet.h"
#include "variables/engine/VariableEngine.h"

#include <QPointer>

#include <memory>
#include <utility>

namespace Quillstacks {

void presentFillIn(QWidget* host, const QString& promptTitle, const QString& promptBody,
                   std::function<void(const QString& filled)> onComplete, std::function<void()> onCancel,
                   FillInArea area) {
    presentFillIn(host, promptTitle, promptBody, extractVariables(promptBody), std::move(onComplete),
                  std::move(onCancel), std::move(area));
}

void presentFillIn(QWidget* host, const QString& promptTitle, const QString& promptBody, const QStringList& variables,
                   std::function<void(const QString& filled)> onComplete, std::function<void()> onCancel,
                   FillInArea area) {
    const auto sheet = std::make_shared<QPointer<Sheet>>();
    const auto dismiss = [sheet] {
        if (*sheet)
            (*sheet)->dismiss();
    };
    auto view = std::make_unique<VariableSubstitutionView>(
        promptTitle, promptBody, variables, rememberedValues(variables),
        [onComplete = std::move(onComplete), dismiss](const QString& filled) {
            onComplete(filled);
            dismiss();
        },
        [onCancel = std::move(onCancel), dismiss] {
            onCancel();
            dismiss();
        });
    Sheet::Options options;
    options.accessibleName = QStringLiteral("Fill in Variables");
    options.onEscape = [content = view.get()] { content->cancel(); };
    options.area = std::move(area.rect);
    options.areaRadius = area.radius;
    *sheet = Sheet::present(host, std::move(view), std::move(options));
}

} // namespace Quillstacks
