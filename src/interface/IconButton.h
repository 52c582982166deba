#pragma once

#include "interface/ColorRole.h"
#include "interface/Transition.h"

#include <QAbstractButton>
#include <QColor>

#include <optional>

namespace Quillstacks {

/// A button that shows a symbol only. Its help text is tool tip and accessible name.
class IconButton final : public QAbstractButton {
    Q_OBJECT
public:
    /// Side of the square, in points.
    enum class Size { regular = 32, row = 28 };

    IconButton(const QString& symbol, const QString& help, Size size = Size::regular, QWidget* parent = nullptr);

    void setSymbol(const QString& name);
    /// The same, with the old symbol fading into the new one.
    void changeSymbol(const QString& name);
    /// 18 in the regular size, 16 in rows, unless said otherwise.
    void setSymbolSize(qreal points);
    void setHelp(const QString& help);
    /// The symbol's colour in place of the secondary one at rest and the primary one while hovered.
    void setColor(std::optional<ColorRole> role);
    /// Opacity of the symbol at rest, 0 to 1.
    void setRestOpacity(qreal opacity);
    /// Without the ground that shows on hover.
    void setPlain(bool plain);
    [[nodiscard]] const QString& symbol() const { return symbolName; }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    [[nodiscard]] QColor symbolColor() const;

    QString symbolName;
    QString oldSymbol; ///< the one that is fading out
    Size size;
    qreal symbolSize;
    std::optional<ColorRole> colorRole;
    qreal restOpacity = 1;
    bool plain = false;
    Transition hover;
    Transition newSymbol;
};

} // namespace Quillstacks
