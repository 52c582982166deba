#pragma once

#include <QPoint>
#include <QWidget>

#include <optional>

class QScreen;

namespace Quillstacks {

/// The welcome's window: a card without a frame that is moved by its ground. Around the card lies room for its shadow
/// where the desktop composites.
class SplashScreenWindow final : public QWidget {
    Q_OBJECT
public:
    SplashScreenWindow();

    /// Puts the card in the middle of the screen's room, smaller where there is less; and again when that room changes.
    void centre(QScreen* screen, const QSize& cardSize);
    /// Takes the view over; it fills the card.
    void setContent(QWidget* view);
    /// The card, within the window.
    [[nodiscard]] QRect cardRect() const;

Q_SIGNALS:
    /// Closed by whomever.
    void closed();

protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void place();
    void layOut();

    QWidget* content = nullptr;
    QScreen* centredOn = nullptr; ///< where it was last centred
    QSize wanted;                 ///< of the card
    QMargins shadow;
    QMetaObject::Connection followed;
    std::optional<QPoint> grip; ///< where a drag by the ground began
};

} // namespace Quillstacks
