#pragma once

#include <QPointer>
#include <QWidget>

namespace Quillstacks {

/// What Lexiwell is, beside the button that asked for it. It lies within the window, and goes by Escape or Tab, by a
/// press anywhere else and by a change of the window's size.
class LexiwellHelpPopover final : public QWidget {
    Q_OBJECT
public:
    /// Shows one below `anchor`, over everything else of its sheet or window. It deletes itself when it is dismissed.
    static LexiwellHelpPopover* present(QWidget* anchor);

    /// Gives the keyboard back.
    void dismiss();

Q_SIGNALS:
    void dismissed();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    LexiwellHelpPopover(QWidget* anchor, QWidget* ground);
    void place();
    [[nodiscard]] QRect box() const;

    QPointer<QWidget> anchor;
    bool leaving = false;
};

} // namespace Quillstacks
