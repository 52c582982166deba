#pragma once

#include <QPointer>
#include <QVariantAnimation>
#include <QWidget>

#include <functional>
#include <memory>

namespace Quillstacks {

/// A card over a dimmed ground inside the window of its host. While it is there it has the keyboard, and all beneath it
/// is inert: mouse, keys, shortcuts, focus. Sheets stack. A sheet never outgrows its window: it shrinks, and its
/// content scrolls where it cannot shrink any more.
class Sheet final : public QWidget {
    Q_OBJECT
public:
    enum class Escape { ignored, dismisses };
    struct Options {
        QString accessibleName;
        QSize minimumSize;   ///< held up to the window's size
        QSize preferredSize; ///< in place of the content's own
        Escape escape = Escape::ignored;
        std::function<void()> onEscape; ///< in place of `escape`
        std::function<QRect()> area;    ///< the part of the window that is covered; the whole window by default
        qreal areaRadius = 0;           ///< its corners
        int margin = 16;                ///< kept between card and area, unless minimumSize needs it
        /// For what is often over sooner: until then nothing is seen of the sheet, while all beneath it is inert
        /// already.
        double appearsAfter = 0; ///< seconds
    };

    /// Shows `content` on a sheet over the window of `host`. The sheet owns it and goes with its host. What had the
    /// keyboard gets it back at the end.
    static Sheet* present(QWidget* host, std::unique_ptr<QWidget> content, Options options);
    /// The sheet that a widget stands on; nullptr for none.
    [[nodiscard]] static Sheet* of(const QWidget* widget);
    /// Whether a sheet lies over the widget, so that it is inert.
    [[nodiscard]] static bool covers(const QWidget* widget);
    /// The topmost sheet of a widget's window; nullptr for none.
    [[nodiscard]] static Sheet* top(const QWidget* widget);

    ~Sheet() override;
    /// Ends the sheet: the keyboard goes back and closed() is told at once, the card fades out and is deleted with its
    /// content. Sheets above it end first. A second call does nothing.
    void dismiss();
    [[nodiscard]] bool isDismissed() const { return leaving; }
    [[nodiscard]] QWidget* content() const { return contentWidget; }
    /// The card's place in the window.
    [[nodiscard]] QRect cardGeometry() const;

Q_SIGNALS:
    /// Told once; not when its host or its window is destroyed first.
    void closed();

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    friend class SheetGuard;
    Sheet(QWidget* host, std::unique_ptr<QWidget> content, Options options);
    void appear();
    void place();
    [[nodiscard]] QSize cardSize(const QRect& area) const;
    [[nodiscard]] QRect area() const;
    void animate(qreal from, qreal to);
    void showProgress(qreal progress);
    void takeFocus();
    void restoreFocus();
    void scrollByKey(QKeyEvent* event);

    Options options;
    QPointer<QWidget> restoreTo;   ///< what holds the focus when the sheet is gone
    QPointer<QWidget> lastFocused; ///< within the sheet
    class SheetCard* card = nullptr;
    QPointer<QWidget> contentWidget;
    QVariantAnimation animation;
    QRect cardPlace;
    qreal progress = 0;
    int depth = 0; ///< sheets beneath it when it came
    bool leaving = false;
    bool placing = false;
};

} // namespace Quillstacks
