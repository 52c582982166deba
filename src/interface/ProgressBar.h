#pragma once

#include <QProgressBar>

namespace Quillstacks {

/// How far something has come. Its accessible name says what goes on.
class ProgressBar final : public QProgressBar {
    Q_OBJECT
public:
    explicit ProgressBar(const QString& accessibleName, QWidget* parent = nullptr);

    /// From 0 to 1.
    void setFraction(double fraction);
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace Quillstacks
