#pragma once

#include "interface/ColorRole.h"

#include <QBasicTimer>
#include <QTextEdit>

namespace Quillstacks {

/// An editor for plain text that keeps every character (PlainTextDocument), with the look's caret, selection and scroll
/// thumb. Paste, drop, typing, copying and drags all go through here.
class PlainTextEdit : public QTextEdit {
    Q_OBJECT
public:
    explicit PlainTextEdit(QWidget* parent = nullptr);

    void setText(const QString& text);
    [[nodiscard]] QString text() const;
    void setPlaceholder(const QString& text);
    /// Font and height of a line, in logical pixels.
    void setLineFormat(const QFont& font, int lineHeight);
    [[nodiscard]] int lineHeight() const { return heightOfLine; }

Q_SIGNALS:
    void focused();
    void unfocused();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void changeEvent(QEvent* event) override;
    [[nodiscard]] QMimeData* createMimeDataFromSelection() const override;
    [[nodiscard]] bool canInsertFromMimeData(const QMimeData* source) const override;
    void insertFromMimeData(const QMimeData* source) override;
    /// How text from keys and clipboard gets in; the cursor's selection goes. Override to do more with it.
    virtual void insertText(const QString& text);
    /// Colours, font and line heights anew.
    virtual void refresh();

private:
    void applyLineHeight();
    void restartCaret();

    QString placeholderText;
    QFont lineFont;
    int heightOfLine = 20;
    QBasicTimer caretTimer;
    bool caretShown = false;
    bool refreshing = false;
};

} // namespace Quillstacks
