#pragma once

#include "interface/TextStyle.h"
#include "interface/Transition.h"

#include <QBasicTimer>
#include <QLineEdit>

#include <optional>

namespace Quillstacks {

/// A field for one line of text, of any length. Without a placeholder or a label beside it, give it an accessible name.
class TextField : public QLineEdit {
    Q_OBJECT
public:
    /// framed: a field of 32; title: of 40, semibold; value: of 38, padded 12; plain: no frame, height of its line.
    enum class Variant { framed, title, value, plain };

    explicit TextField(const QString& placeholder = {}, Variant variant = Variant::framed, QWidget* parent = nullptr);

    /// A symbol before the text; an empty name for none.
    void setSymbol(const QString& name, qreal points = 15);
    /// The text's style in place of the variant's own.
    void setTextStyle(TextStyle style, int weight = 0);
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

Q_SIGNALS:
    void focused();
    void unfocused();

protected:
    void paintEvent(QPaintEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    void refresh();
    void restartCaret();
    void paintFrame(QPainter& painter) const;

    Variant variant;
    TextStyle style;
    int weight = 0;
    QString symbol;
    qreal symbolSize = 15;
    Transition hover;
    QBasicTimer caretTimer;
    bool caretShown = false;
    bool refreshing = false;
};

} // namespace Quillstacks
