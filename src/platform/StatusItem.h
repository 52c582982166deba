#pragma once

#include <QIcon>
#include <QObject>
#include <QString>

#include <memory>

class QMenu;
class QSystemTrayIcon;

namespace Quillstacks {

/// An icon in the desktop's status area with a menu. It comes into being when a tray host is there, however late, and
/// comes back when the host was away. A left click opens the menu as well.
class StatusItem final : public QObject {
    Q_OBJECT
public:
    /// The menu must outlive the item.
    StatusItem(const QString& title, const QIcon& icon, QMenu* menu, QObject* parent = nullptr);
    ~StatusItem() override;

    [[nodiscard]] bool isShown() const;

Q_SIGNALS:
    /// A look for a tray host ended without one; told once, so that it can be logged.
    void noTrayFound();
    void shown();

private:
    void look();
    void create();

    QString title;
    QIcon icon;
    QMenu* menu = nullptr;
    std::unique_ptr<QSystemTrayIcon> tray;
};

} // namespace Quillstacks
