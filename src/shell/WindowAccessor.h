#pragma once

#include <QWidget>

#include <functional>

namespace Quillstacks {

/// Lies unseen behind a view and tells which window the view is in, each time it comes into one.
class WindowAccessor final : public QWidget {
    Q_OBJECT
public:
    WindowAccessor(std::function<void(QWidget* window)> onResolve, QWidget* parent);

    std::function<void(QWidget* window)> onResolve;

protected:
    void showEvent(QShowEvent* event) override;
};

} // namespace Quillstacks
