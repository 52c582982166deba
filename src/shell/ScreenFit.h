#pragma once

#include <QMetaObject>
#include <QObject>
#include <QSize>

class QScreen;
class QWidget;

namespace Quillstacks {

/// Holds a window's smallest size up to its screen: where the screen has less room, the window takes what there is.
/// Belongs to the window.
class ScreenFit final : public QObject {
    Q_OBJECT
public:
    ScreenFit(QWidget* window, const QSize& smallest);

    /// Before the window shows: sets its smallest size, and makes it as small as the screen. Done again by itself when
    /// the screen's room becomes another.
    void fit();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void limit();
    void shrink();
    void follow(QScreen* screen);
    [[nodiscard]] QSize room() const;

    QWidget* window;
    const QSize smallest;
    QMetaObject::Connection followed;
    bool isFrameKnown = false;
};

} // namespace Quillstacks
