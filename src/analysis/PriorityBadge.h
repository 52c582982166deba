#pragma once

#include <QWidget>

namespace Quillstacks {

/// A priority in white on its grey.
class PriorityBadge final : public QWidget {
    Q_OBJECT
public:
    explicit PriorityBadge(const QString& priority, QWidget* parent = nullptr);

    /// The priority as it came, with the first letter of each word capitalised.
    [[nodiscard]] const QString& text() const { return shown; }
    [[nodiscard]] const QColor& color() const { return ground; }
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString shown;
    QColor ground;
};

} // namespace Quillstacks
