#pragma once

#include <QList>
#include <QSet>
#include <QWidget>

#include <vector>

namespace Quillstacks {

class Chip;
class Tag;

/// One chip per tag in a row that scrolls sideways, without a scroll bar: by wheel, and to the chip that gets the
/// keyboard. One stop of the Tab key; the arrows move within.
class TagSelector final : public QWidget {
    Q_OBJECT
public:
    explicit TagSelector(QWidget* parent);

    /// Names and colours are taken anew as well.
    void setTags(const QList<Tag*>& tags);
    void setSelection(const QSet<Tag*>& tags);
    /// How far the row is scrolled to the left, in pixels.
    [[nodiscard]] int offset() const { return scrolled; }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

Q_SIGNALS:
    void tagClicked(Quillstacks::Tag* tag);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Entry {
        Tag* tag = nullptr;
        Chip* chip = nullptr;
    };
    Chip* takeChip(Tag* tag);
    void layOut();
    void scrollTo(int offset);
    void reveal(const Chip& chip);
    void makeTabStop(Chip* chip);
    bool moveByKey(const Chip* from, int key);
    [[nodiscard]] Chip* focusedChip() const;

    std::vector<Entry> entries;
    Chip* tabStop = nullptr;
    int scrolled = 0;
    int contentWidth = 0;
};

} // namespace Quillstacks
