#pragma once

#include <QWidget>

#include <memory>

namespace Quillstacks {

class Button;
class HotkeyRecording;
class ShortcutField;

/// Shows a shortcut, and captures a new one.
class HotkeyRecorderView final : public QWidget {
    Q_OBJECT
public:
    explicit HotkeyRecorderView(std::shared_ptr<HotkeyRecording> recording, QWidget* parent = nullptr);
    ~HotkeyRecorderView() override;

    /// The shortcut to show while nothing was recorded: ModifierFlags and a virtual key code.
    void setShortcut(quint64 modifiers, quint16 keyCode);
    [[nodiscard]] const QString& text() const;

private:
    void refresh();

    const std::shared_ptr<HotkeyRecording> recording;
    quint64 modifiers = 0;
    quint16 keyCode = 0;
    ShortcutField* field = nullptr;
    Button* button = nullptr;
};

} // namespace Quillstacks
