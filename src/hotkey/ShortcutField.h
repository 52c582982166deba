#pragma once

#include "interface/ColorRole.h"
#include "interface/Transition.h"

#include <QWidget>

namespace Quillstacks {

/// Shows a shortcut by its glyphs and its key's name, and whether it is being recorded.
class ShortcutField final : public QWidget {
    Q_OBJECT
public:
    /// `tint` colours ground and edge while recording.
    explicit ShortcutField(ColorRole tint = ColorRole::accent, QWidget* parent = nullptr);

    /// ModifierFlags and a virtual key code. The accessible name and the tool tip spell them for a PC keyboard.
    void setShortcut(quint64 modifiers, quint16 keyCode);
    void setRecording(bool recording);
    /// The larger one of the welcome: 17 points on a line of 22, in the primary colour, height 46.
    void setLarge(bool large);
    [[nodiscard]] const QString& text() const { return shown; }
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    [[nodiscard]] qreal points() const;

    ColorRole tint;
    QString shown;
    bool isLarge = false;
    bool isRecording = false;
    Transition hover;
};

} // namespace Quillstacks
