#pragma once

#include <QBasicTimer>
#include <QWidget>

namespace Quillstacks {

/// Two halves that raise and lower a number. Arrow keys do the same; a held half repeats. 26 x 32.
class Stepper final : public QWidget {
    Q_OBJECT
public:
    /// The value is kept within minimum and maximum; a half that has nothing left is disabled.
    Stepper(const QString& accessibleName, qint64 minimum, qint64 maximum, qint64 step = 1, QWidget* parent = nullptr);

    [[nodiscard]] qint64 value() const { return current; }
    /// Tells nothing. Takes any value; the next step brings it within bounds.
    void setValue(qint64 value);
    [[nodiscard]] QSize sizeHint() const override { return {26, 32}; }
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

Q_SIGNALS:
    /// The user changed it.
    void valueChanged(qint64 value);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    enum class Half { none, up, down };
    [[nodiscard]] Half halfAt(const QPoint& position) const;
    [[nodiscard]] bool canStep(Half half) const;
    void stepBy(Half half);

    qint64 minimum, maximum, step;
    qint64 current = 0;
    Half hovered = Half::none;
    Half pressed = Half::none;
    QBasicTimer repeat;
};

} // namespace Quillstacks
