#pragma once

#include <QAbstractButton>

namespace Quillstacks {

/// The button in the footer that says whether variables are filled in before copying; a click flips the preference.
class FillVariablesToggle final : public QAbstractButton {
    Q_OBJECT
public:
    explicit FillVariablesToggle(QWidget* parent = nullptr);

    [[nodiscard]] QString symbol() const;
    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void refresh();
};

} // namespace Quillstacks
