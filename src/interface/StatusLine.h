#pragma once

#include "interface/ColorRole.h"
#include "interface/Transition.h"

#include <QWidget>

namespace Quillstacks {

class Label;

/// What became of an action, said in a line beneath its control: a symbol and a text. It takes no room while it says
/// nothing.
class StatusLine final : public QWidget {
    Q_OBJECT
public:
    /// `gap` above it, in points.
    explicit StatusLine(int gap = 12, QWidget* parent = nullptr);

    /// Says this from now on; a line that said nothing moves in as it fades in.
    void say(const QString& symbol, const QString& text, ColorRole role);
    /// Fades out.
    void clear();
    /// Empty while it says nothing.
    [[nodiscard]] const QString& text() const { return shownText; }
    [[nodiscard]] const QString& symbol() const { return symbolName; }

private:
    void showProgress(qreal value);

    const int gap;
    QString symbolName;
    QString shownText;
    QWidget* image = nullptr;
    Label* label = nullptr;
    Transition presence;
};

} // namespace Quillstacks
