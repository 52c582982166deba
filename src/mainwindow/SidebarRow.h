#pragma once

#include "interface/Transition.h"

#include <QAbstractButton>

namespace Quillstacks {

/// A row of the sidebar with a symbol before its title. It is checked while it is the selected one.
class SidebarRow final : public QAbstractButton {
    Q_OBJECT
public:
    SidebarRow(const QString& symbol, const QString& title, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QString symbol;
    Transition hover;
};

} // namespace Quillstacks
