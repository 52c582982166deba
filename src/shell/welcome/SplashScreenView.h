#pragma once

#include <QWidget>

#include <functional>
#include <memory>

class QLayout;
class QSpacerItem;
class QVBoxLayout;

namespace Quillstacks {

class Button;
class HotkeyRecording;
class ScrollArea;
class ShortcutField;
class StatusLine;

/// The content of the welcome: where the program is to be found, the shortcut that calls it up, which can be changed on
/// the spot, and the permission that this needs.
class SplashScreenView final : public QWidget {
    Q_OBJECT
public:
    /// `onDismiss` closes the window; `onOpenApp` is held for the caller. A stored modifiers value below zero, or a
    /// stored key code outside 0 to 65535, ends the process.
    SplashScreenView(std::function<void()> onOpenApp, std::function<void()> onDismiss, QWidget* parent = nullptr);
    ~SplashScreenView() override;

    const std::function<void()> onOpenApp;
    const std::function<void()> onDismiss;

    // State
    [[nodiscard]] bool isRecordingHotkey() const;
    [[nodiscard]] quint64 hotkeyModifiers() const { return modifiers; }
    [[nodiscard]] quint16 hotkeyKeyCode() const { return keyCode; }
    /// For three seconds after a shortcut was recorded.
    [[nodiscard]] bool hasSetCustomHotkey() const { return customHotkeySet; }

    // Actions
    /// Starts a recording, or ends it without a capture.
    void toggleRecording();
    void grantPermission();
    /// The button at the end: the welcome is not shown again.
    void finish();

protected:
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    void build();
    [[nodiscard]] QWidget* buildContent();
    [[nodiscard]] QWidget* buildHeader();
    [[nodiscard]] QWidget* buildShortcutCard();
    [[nodiscard]] QLayout* buildRecorder();
    [[nodiscard]] QWidget* buildCommands();
    [[nodiscard]] QWidget* buildPermissionCard();
    void recorded(quint64 modifiers, quint16 keyCode);
    void setHasSetCustomHotkey(bool set);
    void showRecorder();
    void showPermission();

    quint64 modifiers = 0;
    quint16 keyCode = 0;
    bool customHotkeySet = false;
    std::shared_ptr<HotkeyRecording> recording;
    ScrollArea* scroll = nullptr;
    ShortcutField* field = nullptr;
    Button* changeButton = nullptr;
    Button* finishButton = nullptr;
    StatusLine* savedNotice = nullptr;
    QWidget* header = nullptr;
    QVBoxLayout* column = nullptr;
    QSpacerItem* headingGap = nullptr;
    QWidget* permissionCard = nullptr;
};

} // namespace Quillstacks
