#include "library/restore/RestoreQuillstacksView.h"

#include "interface/Alert.h"
#include "interface/Button.h"
#include "interface/Label.h"
#include "interface/StatusLine.h"
#include "interface/SymbolImage.h"
#include "library/restore/FactoryRestore.h"

#include <QHBoxLayout>
#include <QPointer>
#include <QVBoxLayout>

namespace Quillstacks {

RestoreQuillstacksView::RestoreQuillstacksView(ModelContext& context, QWidget* parent)
    : QWidget(parent), modelContext(context) {
    setObjectName(QStringLiteral("RestoreQuillstacksView"));
    build();
    showRestoring(false);
    connect(button, &QAbstractButton::clicked, this, &RestoreQuillstacksView::confirmRestore);
}

void RestoreQuillstacksView::build() {
    auto* heading = new QHBoxLayout;
    heading->setSpacing(9);
    heading->addWidget(new SymbolImage(QStringLiteral("arrow.counterclockwise"), 18, ColorRole::text2, this));
    heading->addWidget(new Label(QStringLiteral("Restore Quillstacks"), TextStyle::headline, ColorRole::text, this), 1);
    auto* text = new Label(QStringLiteral("Delete every prompt, tag, version, and reset all settings back to the fresh "
                                          "install defaults. This action cannot be undone."),
                           TextStyle::subheadline, ColorRole::text2, this);
    text->setMaximumLines(0);
    button = new Button({}, Button::Kind::destructiveFill, this);
    status = new StatusLine(12, this);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addLayout(heading);
    column->addSpacing(6);
    column->addWidget(text);
    column->addSpacing(12);
    column->addWidget(button, 0, Qt::AlignLeft);
    column->addWidget(status);
}

void RestoreQuillstacksView::confirmRestore() {
    if (confirming)
        return;
    confirming = true;
    const Alert::Text question{
        .title = QStringLiteral("Restore Quillstacks?"),
        .message = QStringLiteral("All prompts, tags, versions, and settings will be permanently removed."),
        .confirmTitle = QStringLiteral("Restore"),
        .destructive = true,
    };
    Alert::show(
        this, question,
        [this] {
            confirming = false;
            restore();
        },
        [this] { confirming = false; });
}

void RestoreQuillstacksView::restore() {
    if (restoring)
        return;
    showRestoring(true);
    FactoryRestore::run(modelContext, [self = QPointer(this)](const StatusMessage& result) {
        if (self)
            self->finish(result);
    });
}

void RestoreQuillstacksView::finish(const StatusMessage& result) {
    message = result;
    status->say(result.isError ? QStringLiteral("exclamationmark.triangle.fill")
                               : QStringLiteral("checkmark.circle.fill"),
                result.text, result.isError ? ColorRole::red : ColorRole::green);
    showRestoring(false);
}

void RestoreQuillstacksView::showRestoring(bool isRunning) {
    restoring = isRunning;
    // It stays enabled: a second run is refused where it begins.
    button->setTitle(isRunning ? QStringLiteral("Restoring...") : QStringLiteral("Restore Quillstacks"));
}

} // namespace Quillstacks
