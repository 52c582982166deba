#pragma once

#include <QColor>
#include <QList>
#include <QWidget>

namespace Quillstacks {

/// The tags of a state of a prompt, each a chip on a tint of its colour, in as many rows as they take. "No tags" where
/// there are none.
class VersionTagChips final : public QWidget {
    Q_OBJECT
public:
    struct Tag {
        QString name;
        QColor color;
        bool operator==(const Tag&) const = default;
    };
    explicit VersionTagChips(QWidget* parent = nullptr);

    void setTags(const QList<Tag>& tags);
    [[nodiscard]] const QList<Tag>& tags() const { return shown; }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void refresh();
    [[nodiscard]] QList<QRect> boxes(int width) const;

    QList<Tag> shown;
    int toldHeight = 0;
};

} // namespace Quillstacks
