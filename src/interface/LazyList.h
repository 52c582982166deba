#pragma once

#include "interface/ColorRole.h"

#include <QAbstractScrollArea>
#include <QAccessible>
#include <QMargins>
#include <QVariantAnimation>

#include <functional>
#include <map>
#include <optional>
#include <vector>

namespace Quillstacks {

/// A scrolling list of any number of rows, of which only those that can be seen exist. The height of a row is asked for
/// without making it, so that every position is exact. Rows are made by kind, and used again for others of their kind.
/// The list itself takes the keyboard; rows do not.
class LazyList final : public QAbstractScrollArea {
    Q_OBJECT
public:
    struct Source {
        std::function<int()> count;
        std::function<int(int index, int width)> height;         ///< in pixels, without gap; called for every row
        std::function<QWidget*(int kind, QWidget* parent)> make; ///< the list owns it
        std::function<void(QWidget* row, int index)> bind;       ///< fills a row; also gives it its accessible name
        std::function<int(int index)> kind;                      ///< unset: all are of kind 0
        std::function<void(QWidget* row, bool hovered)> hover;   ///< the pointer came or went; may be unset
        std::function<bool(int index)> isSelected;               ///< for assistive tools; may be unset
        /// For assistive tools, by kind; unset: all are list items. Rows of another role can't be pressed or selected.
        std::function<QAccessible::Role(int kind)> role = {};
        /// Tells a row from all others, whatever its index; needed by followChanges() only.
        std::function<const void*(int index)> key = {};
    };
    LazyList(const QString& accessibleName, QWidget* parent = nullptr);
    ~LazyList() override;

    void setSource(Source source);
    void setGap(int pixels);
    /// Around all rows.
    void setPadding(const QMargins& padding);
    /// Asked first for every key; true when it dealt with it. What it leaves goes on to the parent, but for Page Up and
    /// Down, Home and End, which scroll.
    void setKeyHandler(std::function<bool(QKeyEvent*)> handler);
    /// Rows fade into this colour over the last `height` pixels; empty for none.
    void setBottomFade(std::optional<ColorRole> ground, int height = 36);
    void setBottomFadeColor(const QColor& color, int height = 28);

    /// Count, heights and contents anew; the scroll position is kept where it can be.
    void reload();
    /// The same after a change of what the list shows: where only a few rows came, went or moved, the rows in sight
    /// slide to their new places. Where more did, or the list can't be seen, they stand there at once.
    void followChanges();
    /// Contents of the visible rows anew; count and heights are the same.
    void rebind();
    /// Contents of one row anew, if it is visible.
    void rebind(int index);

    [[nodiscard]] int count() const { return static_cast<int>(tops.size()) - 1; }
    /// The place of a row in the whole list, scrolling left out; on its way there it is seen elsewhere.
    [[nodiscard]] QRect rowGeometry(int index) const;
    /// The row at a position of the viewport; -1 for none.
    [[nodiscard]] int indexAt(const QPoint& position) const;
    /// The row's widget, or nullptr while it cannot be seen.
    [[nodiscard]] QWidget* row(int index) const;
    /// The index that a row's widget (or one within it) stands for; -1 when for none.
    [[nodiscard]] int indexOf(const QWidget* widget) const;
    [[nodiscard]] int hoveredIndex() const { return hovered; }
    /// First and last row that can be seen; {0, -1} for none.
    [[nodiscard]] std::pair<int, int> visibleRange() const;

    /// Scrolls so that the row stands in the middle, as far as the list reaches; in 200 ms, or at once.
    void scrollToCenter(int index, bool animated);
    /// Scrolls as little as is needed to show the whole row.
    void ensureVisible(int index);
    void scrollToTop();

Q_SIGNALS:
    /// The button went down on a row; -1 between rows.
    void pressed(int index, Qt::KeyboardModifiers modifiers);
    /// It went up again on the same one.
    void clicked(int index, Qt::KeyboardModifiers modifiers);
    void doubleClicked(int index);
    /// `global` is where the menu belongs. The index is -1 when the key asked: then the selected row is meant.
    void contextMenuRequested(int index, const QPoint& global);
    void hoveredIndexChanged(int index);
    void scrolled();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    bool viewportEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Shown {
        QWidget* widget = nullptr;
        int kind = 0;
    };
    void measure();
    void layOut();
    void release(const Shown& row);
    Shown take(int index);
    QWidget* makeRow(int kind);
    void updateScrollBar();
    void updateHover();
    void setHovered(int index);
    void handleMouse(QMouseEvent* event);
    void placeFade();
    void scrollTo(int value, bool animated);
    [[nodiscard]] int firstAt(int y) const;
    [[nodiscard]] int clampedScroll(int value) const;
    void settle();
    [[nodiscard]] int travelOf(int index) const;
    [[nodiscard]] QRect placeOf(int index) const;
    [[nodiscard]] std::vector<int> rowsInSight() const;

    Source source;
    std::vector<int> tops{0};      ///< of each row, and the end of the last
    std::vector<const void*> keys; ///< of each row, where the source has them
    std::vector<int> travels;      ///< of each row, how far from its place it sets out; empty while nothing slides
    std::map<int, Shown> shown;
    std::map<int, std::vector<QWidget*>> spare; ///< by kind
    int measuredWidth = -1;
    int gap = 0;
    QMargins padding;
    class EdgeFade* fade = nullptr;
    int fadeHeight = 0;
    int hovered = -1;
    int pressedIndex = -1;
    QVariantAnimation animation; ///< of the scroll position
    QVariantAnimation slide;     ///< from 0 to 1
    std::function<bool(QKeyEvent*)> keyHandler;
};

} // namespace Quillstacks
