#include "interface/Menu.h"

#include "interface/Symbol.h"
#include "MenuPainter.h"

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

} // namespace Quillstacks
