#include "platform/StatusItem.h"

#include "foundation/MainQueue.h"
#include "platform/FakeDesktop.h"

#include <QSystemTrayIcon>

#include <utility>

namespace Quillstacks {

StatusItem::StatusItem(const QString& itemTitle, const QIcon& itemIcon, QMenu* itemMenu, QObject* parent)
    : QObject(parent), title(itemTitle), icon(itemIcon), menu(itemMenu) {
    FakeDesktop& desktop = FakeDesktop::shared();
    desktop.statusItems.push_back(this);
    desktop.statusContents[this] = {.title = title, .icon = icon, .menu = menu};
    MainQueue::async(this, [this] { look(); });
}

StatusItem::~StatusItem() {
    std::erase(FakeDesktop::shared().statusItems, this);
    FakeDesktop::shared().statusContents.erase(this);
}

bool StatusItem::isShown() const {
    return FakeDesktop::shared().contentsOf(this).isShown;
}

void StatusItem::look() {
    if (FakeDesktop::shared().trayAvailable)
        create();
    else
        Q_EMIT noTrayFound();
}

void StatusItem::create() {
    if (std::exchange(FakeDesktop::shared().statusContents[this].isShown, true))
        return;
    Q_EMIT shown();
}

FakeDesktop::StatusItemContents FakeDesktop::contentsOf(const StatusItem* item) const {
    const auto found = statusContents.find(item);
    return found == statusContents.end() ? StatusItemContents() : found->second;
}

void FakeDesktop::setTrayAvailable(bool available) {
    trayAvailable = available;
    if (!available) {
        for (auto& [item, contents] : statusContents)
            contents.isShown = false;
        return;
    }
    // As on a real desktop, the host appears to those that were waiting for it.
    for (StatusItem* item : std::vector<StatusItem*>(statusItems)) {
        if (std::exchange(statusContents[item].isShown, true))
            continue;
        Q_EMIT item->shown();
    }
}

} // namespace Quillstacks
