#pragma once

#include <QWidget>

namespace Quillstacks {

class IconButton;
class TextField;

/// The search field at the top of quick access, with its symbol and the button that empties it.
class QuickAccessSearchRow final : public QWidget {
    Q_OBJECT
public:
    explicit QuickAccessSearchRow(QWidget* parent = nullptr);

    [[nodiscard]] TextField* field() const { return searchField; }
    [[nodiscard]] IconButton* clearButton() const { return clear; }

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void place();

    TextField* searchField = nullptr;
    IconButton* clear = nullptr;
};

} // namespace Quillstacks
