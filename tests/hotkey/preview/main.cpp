#include "hotkey/HotkeyRecorderView.h"
#include "hotkey/HotkeySettingsView.h"
#include "hotkey/PermissionBannerModifier.h"
#include "hotkey/PermissionManager.h"
#include "interface/Button.h"
#include "interface/Card.h"
#include "interface/Sheet.h"
#include "platform/FakeDesktop.h"
#include "support/Preview.h"

#include <QTest>
#include <QVBoxLayout>

using namespace Quillstacks;

namespace {

constexpr int settleTime = 700; ///< milliseconds, longer than any animation

void take(QWidget& window, const QString& file) {
    QTest::qWait(settleTime);
    window.grab().save(file);
}

HotkeySettingsView* addCard(QVBoxLayout* column) {
    auto* card = new Card;
    auto* layout = new QVBoxLayout(card);
    layout->setContentsMargins(20, 20, 20, 20);
    auto* view = new HotkeySettingsView;
    layout->addWidget(view);
    column->addWidget(card);
    return view;
}

void press(const QWidget& within, const QString& title) {
    for (Button* button : within.findChildren<Button*>())
        if (button->text() == title && button->isVisible())
            return button->click();
}

void takeCards(const QString& folder) {
    QWidget window;
    window.resize(448, 1000);
    auto* column = new QVBoxLayout(&window);
    column->setSpacing(20);
    addCard(column);
    HotkeySettingsView* recording = addCard(column);
    window.show();
    press(*recording, QStringLiteral("Record"));
    FakeDesktop::shared().trusted = false;
    addCard(column);
    QTest::qWait(settleTime);
    FakeDesktop::shared().hotKeysSupported = false;
    addCard(column);
    column->addStretch();
    take(window, folder + QStringLiteral("/hotkey-cards.png"));
}

void takePermission(const QString& folder) {
    QWidget window;
    window.resize(900, 600);
    window.show();
    FakeDesktop::shared().trusted = false;
    new PermissionBannerModifier(&window, PermissionManager::shared());
    PermissionManager::shared().checkOnLaunch();
    QTest::qWait(1000);
    take(window, folder + QStringLiteral("/permission-banner.png"));
    auto* settings = new HotkeySettingsView(&window);
    settings->presentPermissions();
    take(window, folder + QStringLiteral("/permission-required.png"));
    FakeDesktop::shared().trusted = true;
    press(window, QStringLiteral("Check Again"));
    take(window, folder + QStringLiteral("/permission-granted.png"));
}

} // namespace

int main(int argc, char** argv) {
    const Preview preview(argc, argv);
    const QString folder = Preview::folder();
    takeCards(folder);
    takePermission(folder);
    return 0;
}
