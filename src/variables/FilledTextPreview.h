#pragma once

#include "interface/Transition.h"

#include <QString>
#include <QWidget>

namespace Quillstacks {

class PlainTextEdit;

/// The part of the fill-in sheet that folds out to show the filled text: selectable, scrolling, at most 150 high.
class FilledTextPreview final : public QWidget {
    Q_OBJECT
public:
    static constexpr int greatestTextHeight = 150;

    explicit FilledTextPreview(QWidget* parent = nullptr);

    /// What is scrolled to stays in sight, as far as the new text reaches.
    void setText(const QString& text);
    [[nodiscard]] const QString& text() const { return shownText; }
    /// Folds out or in, in 200 ms.
    void setOpen(bool open);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void fold();
    void refresh();
    [[nodiscard]] QRect textBox() const;
    [[nodiscard]] int textTop() const;
    [[nodiscard]] int wantedTextHeight() const;
    [[nodiscard]] int folded(int height) const;

    [[nodiscard]] qreal laidOutHeight(qreal enough) const;

    QString shownText;
    PlainTextEdit* edit = nullptr;
    Transition unfolding;
};

} // namespace Quillstacks
