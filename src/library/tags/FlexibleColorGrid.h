#pragma once

#include <QStringList>
#include <QWidget>

#include <vector>

namespace Quillstacks {

class ColorSwatch;

/// Colours to choose one from, in eight columns that share the width. A selection that is not among them rings none.
class FlexibleColorGrid final : public QWidget {
    Q_OBJECT
public:
    FlexibleColorGrid(QStringList colors, QWidget* parent);

    [[nodiscard]] const QStringList& colors() const { return offered; }
    [[nodiscard]] const QString& selection() const { return selected; }
    void setSelection(const QString& colorHex);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// The user's choice; not told by setSelection().
    void selectionChanged(const QString& colorHex);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void choose(int index);
    void step(int from, int right, int down);
    [[nodiscard]] int rows() const;

    QStringList offered;
    QString selected;
    std::vector<ColorSwatch*> swatches;
};

} // namespace Quillstacks
