#pragma once

#include <QPixmap>
#include <QPointer>
#include <QWidget>

class QAbstractButton;
class QMenu;

namespace Quillstacks {

class ToastView;

/// The page of controls.
class Gallery final : public QWidget {
public:
    Gallery();
    /// The page with its menu, which is a window of its own.
    [[nodiscard]] QPixmap picture();
    void showSheets();

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void heading(const QString& text, int x, int y);
    void caption(const QString& text, int x, int y, int width);
    void buttons();
    void fields();
    void pickers();
    void capsAndChips();
    void type();
    void colors();
    void menuAndToast();
    void rows();
    void more();
    void place(QWidget* widget, int x, int y, int width = 0);
    void setStates();

    QList<QWidget*> hovered;
    QList<QWidget*> pressed;
    QList<QWidget*> focused;
    QPointer<QMenu> menu;
    QPoint menuPlace;
};

} // namespace Quillstacks
