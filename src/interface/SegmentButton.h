#pragma once

#include "interface/SegmentedPicker.h"

#include <QAbstractButton>

namespace Quillstacks {

/// One segment: a radio button to assistive tools.
class SegmentButton final : public QAbstractButton {
    Q_OBJECT
public:
    SegmentButton(const SegmentedPicker::Segment& segment, SegmentedPicker* picker);
    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    SegmentedPicker* picker;
    QString symbol;
    Transition hover;
};

} // namespace Quillstacks
