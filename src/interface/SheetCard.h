#pragma once

#include <QWidget>

#include <memory>

class QGraphicsOpacityEffect;

namespace Quillstacks {

class ScrollArea;

/// The card of a sheet: its ground, and the content, which scrolls when the card is smaller than it can be.
class SheetCard final : public QWidget {
    Q_OBJECT
public:
    SheetCard(std::unique_ptr<QWidget> content, QWidget* parent);

    [[nodiscard]] QWidget* content() const { return contentWidget; }
    /// What the content would like, at its own width or the one given by `width`.
    [[nodiscard]] QSize preferredSize(int width) const;
    /// Below which it scrolls.
    [[nodiscard]] QSize smallestSize(int width) const;
    void setOpacity(qreal opacity);
    static constexpr qreal radius = 14;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    friend class Sheet;
    void fit();

    ScrollArea* scroll;
    QWidget* contentWidget;
    QGraphicsOpacityEffect* effect = nullptr;
};

} // namespace Quillstacks
