#include "TokenObject.h"

#include "variables/TokenDocument.h"
#include "variables/VariableTokenAttachmentCell.h"

#include <QAbstractTextDocumentLayout>
#include <QFontMetricsF>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextEdit>

#include <cmath>

namespace Quillstacks {
namespace {

VariableTokenAttachmentCell cellOf(const QTextFormat& format) {
    return {format.stringProperty(TokenDocument::nameProperty)};
}

} // namespace

TokenObject::TokenObject(QTextEdit* editor) : QObject(editor), view(editor) {
    editor->document()->documentLayout()->registerHandler(TokenDocument::objectType, this);
}

QSizeF TokenObject::intrinsicSize(QTextDocument*, int, const QTextFormat& format) {
    return cellOf(format).size();
}

void TokenObject::drawObject(QPainter* painter, const QRectF& frame, QTextDocument* document, int position,
                             const QTextFormat& format) {
    // The toolkit stands objects on the base line; a token's middle belongs where the letters' middle is.
    const qreal down =
        VariableTokenAttachmentCell::height / 2.0 - std::floor(QFontMetricsF(document->defaultFont()).capHeight() / 2);
    const QTextCursor cursor = view->textCursor();
    const bool isSelected = position >= cursor.selectionStart() && position < cursor.selectionEnd();
    cellOf(format).draw(*painter, frame.translated(0, down), isSelected);
    // The toolkit covers a selected object with half the selection's colour before it restores the painter.
    if (isSelected)
        painter->setOpacity(0);
}

} // namespace Quillstacks
