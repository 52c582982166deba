#include "interface/Accessible.h"

#include "interface/Sheet.h"

#include <QAccessibleWidget>
#include <QHash>
#include <QWidget>

namespace Quillstacks {
namespace {

using Registry = QHash<const QObject*, AccessibleTraits>;
Registry& registry() {
    static Registry traits;
    return traits;
}

class TraitsInterface final : public QAccessibleWidget {
public:
    TraitsInterface(QWidget* widget, const AccessibleTraits& given)
        : QAccessibleWidget(widget, given.role), traits(given) {}

    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        if (traits.isChecked) {
            state.checkable = true;
            state.checked = traits.isChecked();
        }
        if (traits.isSelected) {
            state.selectable = true;
            state.selected = traits.isSelected();
        }
        if (traits.role == QAccessible::Dialog)
            state.modal = true;
        return state;
    }
    [[nodiscard]] QStringList actionNames() const override {
        QStringList names = QAccessibleWidget::actionNames();
        if (traits.press && widget()->isEnabled())
            names.prepend(pressAction());
        return names;
    }
    void doAction(const QString& name) override {
        if (Sheet::covers(widget()))
            return; // as inert as to mouse and keys
        if (name == pressAction() && traits.press && widget()->isEnabled())
            traits.press();
        else
            QAccessibleWidget::doAction(name);
    }

private:
    AccessibleTraits traits;
};

QAccessibleInterface* makeInterface(const QString&, QObject* object) {
    const auto found = registry().constFind(object);
    return found == registry().constEnd() ? nullptr : new TraitsInterface(static_cast<QWidget*>(object), *found);
}

} // namespace

void setAccessibleTraits(QWidget* widget, AccessibleTraits traits) {
    static const bool installed = [] {
        QAccessible::installFactory(makeInterface);
        return true;
    }();
    Q_UNUSED(installed)
    if (!registry().contains(widget))
        QObject::connect(widget, &QObject::destroyed, [](QObject* gone) { registry().remove(gone); });
    registry().insert(widget, std::move(traits));
    // Naming a widget makes an interface, which is kept; the one with the traits has to take its place.
    if (QAccessibleInterface* kept = QAccessible::queryAccessibleInterface(widget))
        QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(kept));
}

void announceState(QWidget* widget) {
    if (!QAccessible::isActive())
        return;
    const auto found = registry().constFind(widget);
    if (found == registry().constEnd())
        return;
    QAccessible::State changed;
    changed.checked = found->isChecked != nullptr;
    changed.selected = found->isSelected != nullptr;
    QAccessibleStateChangeEvent event(widget, changed);
    QAccessible::updateAccessibility(&event);
}

} // namespace Quillstacks
