#pragma once

#include "interface/Transition.h"

#include <QWidget>

#include <vector>

namespace Quillstacks {

/// A choice of one among a few, side by side. Arrow keys move it.
class SegmentedPicker final : public QWidget {
    Q_OBJECT
public:
    struct Segment {
        QString title;
        QString symbol; ///< empty for none
    };
    /// Heights, in points.
    enum class Size { regular = 30, field = 40 };

    /// The name is what is chosen, for assistive tools.
    SegmentedPicker(const QString& accessibleName, std::vector<Segment> segments, QWidget* parent = nullptr);

    [[nodiscard]] int selection() const { return selected; }
    /// Tells nothing.
    void setSelection(int index);
    void setSize(Size size);
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

Q_SIGNALS:
    /// The user chose another one.
    void selectionChanged(int index);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    friend class SegmentButton;
    void choose(int index);
    void move(int step);
    [[nodiscard]] int inset() const;
    void placeButtons();

    std::vector<class SegmentButton*> buttons;
    int selected = 0;
    Size currentSize = Size::regular;
};

} // namespace Quillstacks
