#include "shell/welcome/SplashScreenView.h"

#include "foundation/MainQueue.h"
#include "hotkey/HotkeyManager.h"
#include "hotkey/HotkeyPreferences.h"
#include "hotkey/HotkeyRecording.h"
#include "hotkey/PermissionManager.h"
#include "hotkey/ShortcutField.h"
#include "interface/Button.h"
#include "interface/ScrollArea.h"
#include "interface/StatusLine.h"
#include "shell/welcome/SplashScreenManager.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPointer>

namespace Quillstacks {
namespace {

constexpr double savedNoticeSeconds = 3;
constexpr int cleared = 44; ///< of the fade over what scrolls

/// With or without the permission: it may come any moment.
void makeLive(quint64 modifiers, quint16 keyCode) {
    globalHotkeyKeyCodePreference().set(keyCode);
    globalHotkeyModifiersPreference().set(static_cast<qint64>(modifiers));
    HotkeyManager::shared().registerHotkey(keyCode, carbonModifiers(static_cast<quint32>(modifiers)));
}

} // namespace

SplashScreenView::SplashScreenView(std::function<void()> opensApp, std::function<void()> dismisses, QWidget* parent)
    : QWidget(parent), onOpenApp(std::move(opensApp)), onDismiss(std::move(dismisses)),
      modifiers(shownHotkeyModifiers()), keyCode(shownHotkeyKeyCode()) {
    setObjectName(QStringLiteral("SplashScreenView"));
    recording = HotkeyRecording::make(
        [self = QPointer(this)](quint64 newModifiers, quint16 newKeyCode) {
            makeLive(newModifiers, newKeyCode);
            if (self)
                self->recorded(newModifiers, newKeyCode);
        },
        HotkeyRecording::AfterCapture::nothing);
    build();
    connect(recording.get(), &HotkeyRecording::changed, this, &SplashScreenView::showRecorder);
    connect(&PermissionManager::shared(), &PermissionManager::hasAccessibilityPermissionChanged, this,
            &SplashScreenView::showPermission);
    showRecorder();
    showPermission();
}

SplashScreenView::~SplashScreenView() = default;

bool SplashScreenView::isRecordingHotkey() const {
    return recording->isRecording();
}

void SplashScreenView::toggleRecording() {
    recording->toggle();
}

void SplashScreenView::recorded(quint64 newModifiers, quint16 newKeyCode) {
    modifiers = newModifiers;
    keyCode = newKeyCode;
    setHasSetCustomHotkey(true);
    // Never taken back: after a second capture the end of the first one's time counts as well.
    MainQueue::after(savedNoticeSeconds, this, [this] { setHasSetCustomHotkey(false); });
}

void SplashScreenView::setHasSetCustomHotkey(bool set) {
    customHotkeySet = set;
    if (set)
        savedNotice->say(QStringLiteral("checkmark.circle.fill"), QStringLiteral("Shortcut saved!"), ColorRole::green);
    else
        savedNotice->clear();
}

void SplashScreenView::showRecorder() {
    field->setShortcut(modifiers, keyCode);
    field->setRecording(isRecordingHotkey());
    changeButton->setTitle(isRecordingHotkey() ? QStringLiteral("Recording...") : QStringLiteral("Change"));
}

void SplashScreenView::grantPermission() {
    PermissionManager::shared().requestPermission();
}

void SplashScreenView::finish() {
    SplashScreenManager::shared().setHasShownSplashScreen(true);
    onDismiss();
}

void SplashScreenView::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (!event->spontaneous())
        showPermission();
}

void SplashScreenView::keyPressEvent(QKeyEvent* event) {
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!isReturn || !Button::pressDefault(this))
        scroll->scrollByKey(event);
}

bool SplashScreenView::focusNextPrevChild(bool next) {
    // Into view also where it comes from the button beneath what scrolls.
    const bool moved = QWidget::focusNextPrevChild(next);
    QWidget* focused = QApplication::focusWidget();
    if (moved && focused && scroll->widget()->isAncestorOf(focused))
        scroll->ensureWidgetVisible(focused, 0, cleared);
    return moved;
}

} // namespace Quillstacks
