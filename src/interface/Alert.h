#pragma once

#include <QString>

#include <functional>

class QWidget;

namespace Quillstacks {

class Sheet;

/// A question that must be answered before anything else in its window.
namespace Alert {

struct Text {
    QString title;
    QString message;      ///< may be empty
    QString confirmTitle; ///< of the button at the right
    bool destructive = false;
    QString cancelTitle = QStringLiteral("Cancel"); ///< empty for a notice with one button
};

/// Shows the alert over the window of `host`. Escape cancels. Return confirms, but where the alert is destructive:
/// there Cancel has the focus first, and Return presses what has it. Exactly one of the two is called, once, after the
/// alert is gone; neither when the window goes first.
Sheet* show(QWidget* host, const Text& text, std::function<void()> onConfirm, std::function<void()> onCancel = {});

} // namespace Alert
} // namespace Quillstacks
