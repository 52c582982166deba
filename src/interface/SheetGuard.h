#pragma once

#include <QObject>

#include <vector>

class QKeyEvent;
class QShortcutEvent;
class QWidget;

namespace Quillstacks {

class Sheet;

/// Knows the sheets that are open, in the order in which they came, and keeps keys, shortcuts and focus away from what
/// lies beneath them.
class SheetGuard final : public QObject {
    Q_OBJECT
public:
    static SheetGuard& shared();

    void add(Sheet* sheet);
    void remove(Sheet* sheet);
    /// The topmost sheet of a widget's window.
    [[nodiscard]] Sheet* top(const QWidget* widget) const;
    /// Those of the same window that came after a sheet, the latest last.
    [[nodiscard]] std::vector<Sheet*> above(const Sheet* sheet) const;
    [[nodiscard]] bool covers(const QWidget* widget) const;
    [[nodiscard]] int count(const QWidget* window) const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    SheetGuard() = default;
    bool filterShortcut(QObject* watched, QShortcutEvent* event);
    void focusMoved(QWidget* now);
    /// The sheet that lies directly over a widget.
    [[nodiscard]] Sheet* lowestOver(const QWidget* widget) const;

    std::vector<Sheet*> sheets;
};

} // namespace Quillstacks
