#pragma once

#include "interface/ColorRole.h"

#include <QScrollArea>

#include <optional>

namespace Quillstacks {

/// Content that scrolls under a thin thumb, without frame or ground of its own. The content is as wide as the area and
/// as high as it asks to be. Arrows, Page Up and Down, Home and End scroll it; what gets the focus is scrolled into
/// view.
class ScrollArea final : public QScrollArea {
    Q_OBJECT
public:
    explicit ScrollArea(QWidget* parent = nullptr);
    /// Takes ownership.
    void setContent(QWidget* content);
    /// Content fades into this colour over the last `height` pixels while there is more below; empty for none.
    void setBottomFade(std::optional<ColorRole> role, int height = 44);
    /// The same at the top, while there is more above.
    void setTopFade(std::optional<ColorRole> role, int height = 28);
    /// Scrolls as the key of an event asks, where it is one that scrolls.
    void scrollByKey(QKeyEvent* event) { keyPressEvent(event); }
    /// The content's height, so that the area can be as small as its content.
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    void placeFades();

    QWidget* bottomFade = nullptr;
    QWidget* topFade = nullptr;
    int bottomFadeHeight = 0;
    int topFadeHeight = 0;
};

} // namespace Quillstacks
