#include "DeletePromptAlert.h"

#include "interface/Alert.h"

namespace Quillstacks {

Sheet* showDeletePromptAlert(QWidget* host, std::function<void()> onDelete, std::function<void()> onCancel) {
    return Alert::show(host,
                       {.title = QStringLiteral("Delete Prompt?"),
                        .message = QStringLiteral("This action cannot be undone."),
                        .confirmTitle = QStringLiteral("Delete"),
                        .destructive = true},
                       std::move(onDelete), std::move(onCancel));
}

} // namespace Quillstacks
