#include "platform/StatusItem.h"

#include "tray/TrayHostWatch.h"

#include <QCursor>
#include <QMenu>
#include <QSystemTrayIcon>

namespace Quillstacks {

StatusItem::StatusItem(const QString& itemTitle, const QIcon& itemIcon, QMenu* itemMenu, QObject* parent)
    : QObject(parent), title(itemTitle), icon(itemIcon), menu(itemMenu) {
    look();
}

StatusItem::~StatusItem() = default;

bool StatusItem::isShown() const {
    return tray && tray->isVisible();
}

void StatusItem::look() {
    auto* watch = new TrayHostWatch(this);
    connect(watch, &TrayHostWatch::looked, this, [this, told = false](bool there) mutable {
        if (there) {
            create();
        } else if (tray) {
            // Hidden, so that showing it to the next host registers it there.
            tray->hide();
        } else if (!told) {
            told = true;
            Q_EMIT noTrayFound();
        }
    });
}

void StatusItem::create() {
    if (!tray) {
        tray = std::make_unique<QSystemTrayIcon>(icon);
        tray->setToolTip(title);
        tray->setContextMenu(menu);
        connect(tray.get(), &QSystemTrayIcon::activated, this, [this](QSystemTrayIcon::ActivationReason reason) {
            if (reason == QSystemTrayIcon::Trigger)
                menu->popup(QCursor::pos());
        });
    }
    tray->show();
    Q_EMIT shown();
}

} // namespace Quillstacks
