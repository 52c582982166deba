#pragma once

#include "interface/Transition.h"

#include <QAbstractButton>

namespace Quillstacks {

/// On or off (QAbstractButton::toggled). 38 x 22. Space toggles it; Return stays with the sheet's default button.
class Switch final : public QAbstractButton {
    Q_OBJECT
public:
    explicit Switch(const QString& accessibleName, QWidget* parent = nullptr);
    [[nodiscard]] QSize sizeHint() const override { return {38, 22}; }
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Transition on;
    Transition press;
};

} // namespace Quillstacks
