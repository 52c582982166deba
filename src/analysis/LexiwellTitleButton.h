#pragma once

#include "interface/Transition.h"

#include <QAbstractButton>

namespace Quillstacks {

/// The panel's name between two symbols, as a button without a ground.
class LexiwellTitleButton final : public QAbstractButton {
    Q_OBJECT
public:
    explicit LexiwellTitleButton(QWidget* parent = nullptr);
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    Transition hover;
};

} // namespace Quillstacks
