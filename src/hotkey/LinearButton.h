#pragma once

#include "interface/Button.h"

namespace Quillstacks {

/// A button of the permission banner.
class LinearButton final : public Button {
    Q_OBJECT
public:
    LinearButton(const QString& text, bool isPrimary, QWidget* parent = nullptr);
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const bool isPrimary;
    Transition press;
};

} // namespace Quillstacks
