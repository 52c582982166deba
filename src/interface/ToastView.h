#pragma once

#include <QWidget>

namespace Quillstacks {

/// The notice: its text on a raised ground, as large as the text needs.
class ToastView final : public QWidget {
    Q_OBJECT
public:
    explicit ToastView(QWidget* parent = nullptr);

    void setMessage(const QString& message);
    [[nodiscard]] const QString& message() const { return text; }
    /// How much of it can be seen, 0 to 1.
    void setOpacity(qreal opacity);
    /// The size of the ground; the widget is larger by shadowMargin() on every side.
    [[nodiscard]] QSize groundSize(int maximumWidth) const;
    [[nodiscard]] static int shadowMargin();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString text;
    qreal opacity = 1;
};

} // namespace Quillstacks
