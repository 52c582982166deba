#pragma once

#include "interface/PlainTextEdit.h"
#include "interface/Transition.h"

namespace Quillstacks {

/// A field for text of several lines. It grows with its text, from `minimum` to `maximum` lines, and scrolls beyond.
/// Tab leaves it.
class TextArea final : public PlainTextEdit {
    Q_OBJECT
public:
    explicit TextArea(const QString& placeholder = {}, int minimumLines = 1, int maximumLines = 5,
                      QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void refresh() override;

private:
    void grow();
    [[nodiscard]] int wantedHeight() const;

    int minimumLines;
    int maximumLines;
    int toldHeight = 0;
    Transition hover;
};

} // namespace Quillstacks
