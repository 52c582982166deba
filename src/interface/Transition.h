#pragma once

#include <QObject>
#include <QPointer>
#include <QVariantAnimation>
#include <QWidget>

namespace Quillstacks {

/// A number between 0 and 1 that eases to its new value and repaints its widget meanwhile: hover, press, folds.
/// While the widget cannot be seen it jumps.
class Transition final : public QObject {
    Q_OBJECT
public:
    /// The widget is repainted; it must outlive the transition, best as its member.
    explicit Transition(QWidget* widget, int milliseconds = 150);

    [[nodiscard]] qreal value() const { return current; }
    [[nodiscard]] qreal target() const { return goal; }
    void to(qreal value);
    void jump(qreal value);

Q_SIGNALS:
    void valueChanged(qreal value);

private:
    void set(qreal value);

    QWidget* widget;
    QVariantAnimation* animation = nullptr; ///< made when first needed
    int milliseconds;
    qreal current = 0;
    qreal goal = 0;
};

} // namespace Quillstacks
