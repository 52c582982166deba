#pragma once

#include "interface/Transition.h"

#include <QAbstractButton>

namespace Quillstacks {

/// A row of the sidebar with a symbol before its title. Where it can be selected, it is checked while it is; which row
/// that is the section says, not a click.
class SidebarRow : public QAbstractButton {
    Q_OBJECT
public:
    enum class Kind {
        selectable,
        action ///< a plain button among the rows
    };
    SidebarRow(const QString& symbol, const QString& title, Kind kind, QWidget* parent);

    /// Any text is shown as it stands; it is the accessible name as well.
    void setTitle(const QString& title);
    /// Whether the Tab key stops here.
    virtual void setTabStop(bool stops);
    [[nodiscard]] QSize sizeHint() const override;

Q_SIGNALS:
    /// Up is -1, Down is 1; of rows that can be selected.
    void arrowPressed(int offset);

protected:
    void paintEvent(QPaintEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void nextCheckState() override {}
    /// What stands before the title.
    virtual void paintLead(QPainter& painter, const QRectF& box) const;
    /// Room that is kept free behind the title.
    virtual int trailingRoom() const { return 8; }

    Transition hover;

private:
    QString symbol;
    Kind kind;
};

} // namespace Quillstacks
