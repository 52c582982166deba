#pragma once

#include <QMenu>

#include <functional>

namespace Quillstacks {

/// A context menu in the program's look. Show it with popup(); it deletes itself when it closes.
class Menu final : public QMenu {
    Q_OBJECT
public:
    explicit Menu(QWidget* parent);

    /// An entry with a symbol before its title; "&" in a title is shown as it stands.
    QAction* add(const QString& symbol, const QString& title, std::function<void()> chosen);
    /// The same in red.
    QAction* addDestructive(const QString& symbol, const QString& title, std::function<void()> chosen);

protected:
    void showEvent(QShowEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
};

} // namespace Quillstacks
