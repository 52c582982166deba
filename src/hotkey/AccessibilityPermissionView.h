#pragma once

#include "interface/Sheet.h"

#include <QWidget>

class QVBoxLayout;

namespace Quillstacks {

class PermissionManager;

/// The sheet that tells how the permission is given, and whether it is.
class AccessibilityPermissionView final : public QWidget {
    Q_OBJECT
public:
    explicit AccessibilityPermissionView(PermissionManager& manager, QWidget* parent = nullptr);

    [[nodiscard]] bool hasPermission() const { return granted; }

    // Actions
    void checkAgain();
    void openSystemSettings();
    void dismiss();

    [[nodiscard]] static Sheet::Options sheetOptions();
    [[nodiscard]] QSize sizeHint() const override;

Q_SIGNALS:
    void closed();

protected:
    void showEvent(QShowEvent* event) override;

private:
    void showState();
    [[nodiscard]] QWidget* makeContent();
    [[nodiscard]] QLayout* makeButtons();

    PermissionManager& permissionManager;
    bool granted = false;
    QVBoxLayout* column = nullptr;
    QWidget* content = nullptr;
};

} // namespace Quillstacks
