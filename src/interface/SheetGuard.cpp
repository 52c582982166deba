#include "SheetGuard.h"

#include "interface/Sheet.h"

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QShortcut>

namespace Quillstacks {
namespace {

/// The widgets that a shortcut belongs to.
QList<QWidget*> owners(QObject* object) {
    if (auto* widget = qobject_cast<QWidget*>(object))
        return {widget};
    QList<QWidget*> result;
    if (const auto* action = qobject_cast<QAction*>(object)) {
        for (QObject* associated : action->associatedObjects())
            if (auto* widget = qobject_cast<QWidget*>(associated))
                result += widget;
    } else if (auto* widget = qobject_cast<QWidget*>(object->parent())) {
        result += widget;
    }
    return result;
}

} // namespace

SheetGuard& SheetGuard::shared() {
    static SheetGuard guard;
    return guard;
}

void SheetGuard::add(Sheet* sheet) {
    if (sheets.empty()) {
        qApp->installEventFilter(this);
        connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { focusMoved(now); });
    }
    sheets.push_back(sheet);
}

void SheetGuard::remove(Sheet* sheet) {
    if (std::erase(sheets, sheet) > 0 && sheets.empty() && qApp) {
        qApp->removeEventFilter(this);
        disconnect(qApp, nullptr, this, nullptr);
    }
}

Sheet* SheetGuard::top(const QWidget* widget) const {
    const auto found = std::find_if(sheets.rbegin(), sheets.rend(),
                                    [widget](const Sheet* sheet) { return sheet->window() == widget->window(); });
    return found == sheets.rend() ? nullptr : *found;
}

std::vector<Sheet*> SheetGuard::above(const Sheet* sheet) const {
    std::vector<Sheet*> result;
    const auto from = std::find(sheets.begin(), sheets.end(), sheet);
    if (from != sheets.end())
        std::copy_if(std::next(from), sheets.end(), std::back_inserter(result),
                     [sheet](const Sheet* other) { return other->window() == sheet->window(); });
    return result;
}

bool SheetGuard::covers(const QWidget* widget) const {
    const Sheet* sheet = top(widget);
    return sheet && sheet != widget && !sheet->isAncestorOf(widget);
}

int SheetGuard::count(const QWidget* window) const {
    return static_cast<int>(std::count_if(sheets.begin(), sheets.end(),
                                          [window](const Sheet* sheet) { return sheet->window() == window; }));
}

Sheet* SheetGuard::lowestOver(const QWidget* widget) const {
    const Sheet* own = Sheet::of(widget);
    if (own && std::find(sheets.begin(), sheets.end(), own) != sheets.end()) {
        const auto over = above(own);
        return over.empty() ? nullptr : over.front();
    }
    const auto found = std::find_if(sheets.begin(), sheets.end(),
                                    [widget](const Sheet* sheet) { return sheet->window() == widget->window(); });
    return found == sheets.end() ? nullptr : *found;
}

void SheetGuard::focusMoved(QWidget* now) {
    Sheet* sheet = now ? top(now) : nullptr;
    if (!sheet)
        return;
    if (!covers(now)) {
        sheet->lastFocused = now;
        return;
    }
    // What asks for the keyboard beneath a sheet gets it when the sheet closes.
    lowestOver(now)->restoreTo = now;
    sheet->takeFocus();
}

bool SheetGuard::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::Shortcut:
        return filterShortcut(watched, static_cast<QShortcutEvent*>(event));
    case QEvent::ShortcutOverride:
    case QEvent::KeyRelease:
    case QEvent::InputMethod:
        return watched->isWidgetType() && covers(static_cast<QWidget*>(watched));
    case QEvent::KeyPress: {
        if (!watched->isWidgetType() || !covers(static_cast<QWidget*>(watched)))
            return false;
        // Keys go to the window itself when nothing in it has the focus.
        Sheet* sheet = top(static_cast<QWidget*>(watched));
        sheet->takeFocus();
        sheet->keyPressEvent(static_cast<QKeyEvent*>(event));
        return true;
    }
    default:
        return false;
    }
}

bool SheetGuard::filterShortcut(QObject* watched, QShortcutEvent* event) {
    const QList<QWidget*> widgets = owners(watched);
    if (widgets.isEmpty())
        return false;
    const auto isCovered = [this](const QWidget* widget) { return covers(widget); };
    const bool covered = std::all_of(widgets.begin(), widgets.end(), isCovered);
    if (!covered && !event->isAmbiguous())
        return false;
    // Shortcuts beneath don't count: where one in the topmost sheet has the same keys, it alone is meant.
    Sheet* sheet = top(widgets.front());
    if (!sheet)
        return false;
    for (QShortcut* shortcut : sheet->findChildren<QShortcut*>()) {
        const auto* owner = qobject_cast<QWidget*>(shortcut->parent());
        if (shortcut->isEnabled() && shortcut->key() == event->key() && owner && owner->isVisible()) {
            Q_EMIT shortcut->activated();
            return true;
        }
    }
    return covered;
}

} // namespace Quillstacks
