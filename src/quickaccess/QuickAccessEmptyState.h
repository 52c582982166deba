#pragma once

#include <QWidget>

namespace Quillstacks {

/// What stands in for the list when nothing is to be shown: a symbol and a line.
class QuickAccessEmptyState final : public QWidget {
    Q_OBJECT
public:
    explicit QuickAccessEmptyState(QWidget* parent = nullptr);

    void setText(const QString& text);
    [[nodiscard]] const QString& text() const { return line; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString line;
};

} // namespace Quillstacks
