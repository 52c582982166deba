#pragma once

#include <QAccessible>

#include <functional>

class QWidget;

namespace Quillstacks {

/// What assistive tools hear of a widget that paints itself.
struct AccessibleTraits {
    QAccessible::Role role = QAccessible::Client;
    std::function<void()> press;      ///< the widget's main action, where it has one
    std::function<bool()> isChecked;  ///< where it is checkable
    std::function<bool()> isSelected; ///< where it is selectable
};

/// Gives a widget its traits. Its name stays its accessibleName. Say it once, at its making.
void setAccessibleTraits(QWidget* widget, AccessibleTraits traits);
/// Tells assistive tools that checked or selected is another.
void announceState(QWidget* widget);

} // namespace Quillstacks
