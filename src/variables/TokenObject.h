#pragma once

#include <QObject>
#include <QTextObjectInterface>

class QTextEdit;

namespace Quillstacks {

/// Lays out and draws the tokens of an editor.
class TokenObject final : public QObject, public QTextObjectInterface {
    Q_OBJECT
    Q_INTERFACES(QTextObjectInterface)
public:
    /// The editor owns it.
    explicit TokenObject(QTextEdit* editor);

    QSizeF intrinsicSize(QTextDocument* document, int position, const QTextFormat& format) override;
    void drawObject(QPainter* painter, const QRectF& frame, QTextDocument* document, int position,
                    const QTextFormat& format) override;

private:
    QTextEdit* view;
};

} // namespace Quillstacks
