#pragma once

#include <QObject>

class QImage;
class QWidget;

namespace Quillstacks::X11 {

/// What a hidden window has for its background, so that the server shows it with the window itself. The first drawing
/// of the window's own takes it away again: it would flash up wherever another window moves off this one. Belongs to
/// its window.
class FirstPicture final : public QObject {
    Q_OBJECT
public:
    explicit FirstPicture(QWidget* window);
    /// The window's own; nullptr when it has none.
    [[nodiscard]] static FirstPicture* of(const QWidget* window);

    /// Premultiplied, and as large as the window in pixels. Nothing happens where the server takes no such picture.
    void set(const QImage& picture);
    void clear();

private:
    bool eventFilter(QObject* watched, QEvent* event) override;

    QWidget* const window;
    bool isSet = false;
};

} // namespace Quillstacks::X11
