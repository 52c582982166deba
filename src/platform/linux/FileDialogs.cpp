#include "platform/FileDialogs.h"

#include <QFileDialog>
#include <QUrl>

namespace Quillstacks::FileDialogs {

namespace {

Answer answerOf(const QList<QUrl>& urls) {
    if (urls.isEmpty())
        return {};
    if (!urls.first().isLocalFile())
        return {{}, QStringLiteral("“%1” is not a file on this computer.").arg(urls.first().toDisplayString())};
    return {urls.first().toLocalFile(), {}};
}

/// On the toolkit's dialog, which is the desktop's where there is one.
void ask(QWidget* over, QFileDialog* dialog, const FileType& type, const Done& done) {
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setNameFilter(QStringLiteral("%1 (*.%2)").arg(type.name, type.suffix));
    dialog->setDefaultSuffix(type.suffix);
    QObject::connect(dialog, &QDialog::finished, over, [dialog, done](int result) {
        done(result == QDialog::Accepted ? answerOf(dialog->selectedUrls()) : Answer{});
    });
    dialog->open();
}

} // namespace

void saveFile(QWidget* over, const FileType& type, const QString& offeredName, Done done) {
    auto* dialog = new QFileDialog(over->window());
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setFileMode(QFileDialog::AnyFile);
    dialog->selectFile(offeredName + QLatin1Char('.') + type.suffix);
    ask(over, dialog, type, done);
}

void openFile(QWidget* over, const FileType& type, Done done) {
    auto* dialog = new QFileDialog(over->window());
    dialog->setAcceptMode(QFileDialog::AcceptOpen);
    dialog->setFileMode(QFileDialog::ExistingFile);
    ask(over, dialog, type, done);
}

} // namespace Quillstacks::FileDialogs
