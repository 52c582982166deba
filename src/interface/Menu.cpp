#include "interface/Menu.h"

#include "interface/Symbol.h"
#include "MenuPainter.h"

#include <QMouseEvent>

namespace Quillstacks {

Menu::Menu(QWidget* parent) : QMenu(parent) {
    setAttribute(Qt::WA_DeleteOnClose);
}

QAction* Menu::add(const QString& symbol, const QString& title, std::function<void()> chosen) {
    QString shown = title;
    shown.replace(QLatin1Char('&'), QLatin1String("&&"));
    QAction* action = symbol.isEmpty() ? addAction(shown) : addAction(Symbol::icon(symbol), shown);
    action->setIconVisibleInMenu(true);
    connect(action, &QAction::triggered, this, [chosen = std::move(chosen)] { chosen(); });
    return action;
}

QAction* Menu::addDestructive(const QString& symbol, const QString& title, std::function<void()> chosen) {
    QAction* action = add(symbol, title, std::move(chosen));
    action->setProperty(MenuPainter::destructiveProperty, true);
    return action;
}

void Menu::showEvent(QShowEvent* event) {
    // The menu itself goes where it was asked for, its shadow lies around it.
    const int reach = MenuPainter::shadowMargin(this);
    move(pos() - QPoint(reach, reach));
    QMenu::showEvent(event);
}

void Menu::mousePressEvent(QMouseEvent* event) {
    const int reach = MenuPainter::shadowMargin(this);
    if (rect().adjusted(reach, reach, -reach, -reach).contains(event->position().toPoint()))
        QMenu::mousePressEvent(event);
    else
        close(); // the shadow is beside the menu, not part of it
}

} // namespace Quillstacks
