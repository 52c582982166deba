#pragma once

#include <functional>

class QWidget;

namespace Quillstacks {

class Sheet;

/// Asks whether a prompt is to be deleted; exactly one of the two is called.
Sheet* showDeletePromptAlert(QWidget* host, std::function<void()> onDelete, std::function<void()> onCancel);

} // namespace Quillstacks
