#include "platform/Clipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

namespace Quillstacks::Clipboard {

void clearContents() {
    QGuiApplication::clipboard()->clear();
}

void setString(const QString& text) {
    auto* data = new QMimeData; // owned by the clipboard from here on
    data->setText(text);
    QGuiApplication::clipboard()->setMimeData(data);
}

QString string() {
    return QGuiApplication::clipboard()->text();
}

} // namespace Quillstacks::Clipboard
