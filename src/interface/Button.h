#pragma once

#include "interface/ColorRole.h"
#include "interface/Transition.h"

#include <QAbstractButton>
#include <QColor>

#include <optional>

namespace Quillstacks {

class BusyIndicator;

/// A push button. It takes the keyboard, is pressed by Space and, while it has the focus, by Return.
class Button : public QAbstractButton {
    Q_OBJECT
public:
    enum class Kind {
        prominent,
        bordered,
        borderless,
        destructive,     ///< bordered, text red
        destructiveFill, ///< of alerts and of the factory restore
        link             ///< borderless, text in the accent colour
    };
    /// Heights, in points.
    enum class Size { small = 26, regular = 30, alert = 32, large = 34, field = 40, tall = 44 };

    explicit Button(const QString& text, Kind kind = Kind::bordered, QWidget* parent = nullptr);

    /// Any text is shown as it stands: "&" makes no shortcut. It is the accessible name as well.
    void setTitle(const QString& text);
    void setKind(Kind kind);
    void setSize(Size size);
    /// A symbol before the text, `points` wide; an empty name for none.
    void setSymbol(const QString& name, qreal points = 15);
    /// While what it started goes on: a turning arc in the symbol's place, and no presses.
    void setBusy(bool busy);
    /// In place of the kind's own colour; an empty one gives it back.
    void setTextColor(std::optional<ColorRole> role);
    /// The one prominent button of a sheet or window, which answers Return.
    void setDefault(bool isDefault);
    [[nodiscard]] bool isDefault() const { return answersReturn; }
    /// Presses the default button within a widget, if it has one that is visible; false when it has none, or when that
    /// is disabled.
    static bool pressDefault(const QWidget* within);

    [[nodiscard]] Kind kind() const { return currentKind; }
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    struct Look {
        QColor ground, edge, text;
    };
    [[nodiscard]] Look look() const;
    [[nodiscard]] qreal radius() const;
    [[nodiscard]] QFont textFont() const;
    [[nodiscard]] int sidePadding() const;
    /// Of symbol or arc with the gap after it; 0 where there is neither.
    [[nodiscard]] qreal symbolRoom() const;
    /// What fits of the text, beside the symbol.
    [[nodiscard]] QString shownText() const;
    [[nodiscard]] qreal contentLeft() const;
    void placeIndicator();

    Kind currentKind;
    Size currentSize = Size::regular;
    QString symbol;
    qreal symbolSize = 15;
    std::optional<ColorRole> textColor;
    BusyIndicator* indicator = nullptr; ///< while busy
    bool answersReturn = false;
    Transition hover;
    Transition press;
};

} // namespace Quillstacks
