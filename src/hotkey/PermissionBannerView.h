#pragma once

#include "interface/Transition.h"

#include <QWidget>

namespace Quillstacks {

class PermissionManager;

/// The card that asks for the permission. The widget is larger than the card by shadowMargin() on every side.
class PermissionBannerView final : public QWidget {
    Q_OBJECT
public:
    explicit PermissionBannerView(PermissionManager& manager, QWidget* parent = nullptr);

    static constexpr int maximumCardWidth = 480;
    [[nodiscard]] static int shadowMargin();

protected:
    void paintEvent(QPaintEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    [[nodiscard]] QLayout* makeText();
    [[nodiscard]] QLayout* makeButtons();

    PermissionManager& permissionManager;
    Transition hover;
};

} // namespace Quillstacks
