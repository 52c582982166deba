#include "hotkey/PermissionManager.h"
#include "interface/StatusLine.h"
#include "platform/FakeDesktop.h"
#include "shell/welcome/SplashScreenView.h"
#include "shell/welcome/SplashScreenWindow.h"
#include "shell/welcome/SplashScreenWindowManager.h"
#include "support/Preview.h"

#include <QPainter>
#include <QScreen>
#include <QTest>

using namespace Quillstacks;

namespace {

constexpr int settleTime = 500; ///< milliseconds, longer than any animation

/// The window on a wall.
void take(const QString& file) {
    SplashScreenWindow* window = SplashScreenWindowManager::shared().windowController();
    QTest::qWait(settleTime);
    const QPixmap shown = window->grab();
    QPixmap picture(shown.size());
    picture.setDevicePixelRatio(shown.devicePixelRatio());
    picture.fill(QColor(0x566273));
    QPainter(&picture).drawPixmap(0, 0, shown);
    picture.save(file);
}

void takeAll(const QString& folder) {
    SplashScreenWindowManager& welcome = SplashScreenWindowManager::shared();
    welcome.show({});
    const auto resize = [&welcome](const QSize& size) {
        welcome.windowController()->centre(QGuiApplication::primaryScreen(), size);
    };
    take(folder + QStringLiteral("/welcome.png"));
    welcome.hostingController()->findChild<StatusLine*>()->say(QStringLiteral("checkmark.circle.fill"),
                                                               QStringLiteral("Shortcut saved!"), ColorRole::green);
    take(folder + QStringLiteral("/welcome-saved.png"));
    welcome.hostingController()->toggleRecording();
    take(folder + QStringLiteral("/welcome-recording.png"));
    welcome.hostingController()->toggleRecording();
    FakeDesktop::shared().trusted = false;
    PermissionManager::shared().checkPermission();
    take(folder + QStringLiteral("/welcome-permission.png"));
    resize(QSize(600, 420));
    take(folder + QStringLiteral("/welcome-low.png"));
}

} // namespace

int main(int argc, char** argv) {
    const Preview preview(argc, argv);
    const QString folder = Preview::folder();
    PermissionManager::shared().refreshPermission();
    takeAll(folder);
    return 0;
}
