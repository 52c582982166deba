#pragma once

#include <QWidget>

#include <memory>

namespace Quillstacks {

class HotkeyRecorderView;
class HotkeyRecording;

/// The group of settings for the global shortcut. A shortcut that is recorded here is stored, and live at once.
class HotkeySettingsView final : public QWidget {
    Q_OBJECT
public:
    /// A stored modifiers value below zero, or a stored key code outside 0 to 65535, ends the process.
    explicit HotkeySettingsView(QWidget* parent = nullptr);
    ~HotkeySettingsView() override;

    // State
    [[nodiscard]] bool isRecording() const;
    [[nodiscard]] bool hasAccessibilityPermission() const { return *permission; }
    [[nodiscard]] bool isPresentingPermissions() const { return presentingPermissions; }

    // Actions
    void presentPermissions();

protected:
    void showEvent(QShowEvent* event) override;

private:
    void build();
    [[nodiscard]] QWidget* makePermissionNotice();
    [[nodiscard]] QWidget* makeUnsupportedNotice();
    void showStored();
    void showDesktop();

    /// The last known answer. What is recorded after the view's end still goes by it.
    const std::shared_ptr<bool> permission = std::make_shared<bool>(false);
    const std::shared_ptr<HotkeyRecording> recording;
    bool presentingPermissions = false;
    HotkeyRecorderView* recorder = nullptr;
    QWidget* permissionNotice = nullptr;
    QWidget* unsupportedNotice = nullptr;
};

} // namespace Quillstacks
