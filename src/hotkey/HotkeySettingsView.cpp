#include "hotkey/HotkeySettingsView.h"

#include "hotkey/AccessibilityPermissionView.h"
#include "hotkey/HotkeyManager.h"
#include "hotkey/HotkeyPreferences.h"
#include "hotkey/HotkeyRecorderView.h"
#include "hotkey/HotkeyRecording.h"
#include "hotkey/PermissionManager.h"
#include "interface/Button.h"
#include "interface/Card.h"
#include "interface/Label.h"
#include "interface/Sheet.h"
#include "interface/SymbolImage.h"
#include "platform/Accessibility.h"
#include "platform/HotKeys.h"

#include <QShowEvent>
#include <QVBoxLayout>

namespace Quillstacks {

namespace {

/// Of a small button without an edge: its text, not the ground that shows under the mouse, lines up with others.
constexpr int groundBesideText = 11;
constexpr int noticeSymbol = 16;
constexpr int noticeGap = 8;

void record(quint64 modifiers, quint16 keyCode, bool hasPermission) {
    globalHotkeyModifiersPreference().set(static_cast<qint64>(modifiers));
    globalHotkeyKeyCodePreference().set(keyCode);
    if (!hasPermission)
        return;
    HotkeyManager::shared().unregister();
    HotkeyManager::shared().registerHotkey(keyCode, carbonModifiers(static_cast<quint32>(modifiers)));
}

Label* paragraph(const QString& text, ColorRole role) {
    auto* label = new Label(text, TextStyle::caption, role);
    label->setMaximumLines(0);
    return label;
}

} // namespace

HotkeySettingsView::HotkeySettingsView(QWidget* parent)
    : QWidget(parent), recording(HotkeyRecording::make([known = permission](quint64 modifiers, quint16 keyCode) {
          record(modifiers, keyCode, *known);
      })) {
    setObjectName(QStringLiteral("HotkeySettingsView"));
    build();
    showStored();
    showDesktop();
    globalHotkeyModifiersPreference().observe(this, [this] { showStored(); });
    globalHotkeyKeyCodePreference().observe(this, [this] { showStored(); });
}

HotkeySettingsView::~HotkeySettingsView() = default;

bool HotkeySettingsView::isRecording() const {
    return recording->isRecording();
}

void HotkeySettingsView::build() {
    auto* heading = new QVBoxLayout;
    heading->setSpacing(3);
    heading->addWidget(new Label(QStringLiteral("Global Hotkey"), TextStyle::headline));
    heading->addWidget(paragraph(
        QStringLiteral("Press a keyboard shortcut to quickly access your prompts from anywhere."), ColorRole::text2));
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(12);
    column->addLayout(heading);
    // At the foot of a card that is higher than it needs.
    column->addStretch();
    recorder = new HotkeyRecorderView(recording, this);
    column->addWidget(recorder);
    permissionNotice = makePermissionNotice();
    column->addWidget(permissionNotice);
    unsupportedNotice = makeUnsupportedNotice();
    column->addWidget(unsupportedNotice);
}

QWidget* HotkeySettingsView::makePermissionNotice() {
    auto* notice = new Card(Card::tinted(ColorRole::blue, 0.1, 0, 6));
    auto* text = new QHBoxLayout;
    text->setSpacing(noticeGap);
    text->addWidget(new SymbolImage(QStringLiteral("info.circle.fill"), noticeSymbol, ColorRole::blue), 0,
                    Qt::AlignTop);
    text->addWidget(
        paragraph(QStringLiteral("Accessibility permission required for global shortcuts"), ColorRole::blue), 1);
    auto* grant = new Button(QStringLiteral("Grant Permission"), Button::Kind::borderless);
    grant->setSize(Button::Size::small);
    connect(grant, &QAbstractButton::clicked, this, &HotkeySettingsView::presentPermissions);
    // In line with the text above, whose symbol stands beside it.
    auto* beneath = new QHBoxLayout;
    beneath->setContentsMargins(noticeSymbol + noticeGap - groundBesideText, 0, 0, 0);
    beneath->addWidget(grant, 0, Qt::AlignLeft);
    auto* column = new QVBoxLayout(notice);
    column->setContentsMargins(8, 8, 8, 8);
    column->setSpacing(4);
    column->addLayout(text);
    column->addLayout(beneath);
    return notice;
}

QWidget* HotkeySettingsView::makeUnsupportedNotice() {
    auto* notice = new Card(Card::tinted(ColorRole::blue, 0.1, 0, 6));
    auto* column = new QVBoxLayout(notice);
    column->setContentsMargins(8, 8, 8, 8);
    column->setSpacing(4);
    column->addWidget(paragraph(QStringLiteral("This desktop gives programs no global shortcuts. In its keyboard "
                                               "settings, give a shortcut of your own to this command:"),
                                ColorRole::text2));
    Label* command = paragraph(QStringLiteral("gapplication action app.Quillstacks quick-access"), ColorRole::text);
    command->setTextStyle(TextStyle::monoCaption);
    command->setSelectable(true);
    column->addWidget(command);
    return notice;
}

void HotkeySettingsView::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (event->spontaneous())
        return;
    *permission = Accessibility::isProcessTrusted(false);
    showDesktop();
}

void HotkeySettingsView::showStored() {
    recorder->setShortcut(shownHotkeyModifiers(), shownHotkeyKeyCode());
}

void HotkeySettingsView::showDesktop() {
    permissionNotice->setVisible(!*permission);
    unsupportedNotice->setVisible(!HotKeys::isSupported());
}

void HotkeySettingsView::presentPermissions() {
    if (presentingPermissions)
        return;
    presentingPermissions = true;
    auto content = std::make_unique<AccessibilityPermissionView>(PermissionManager::shared());
    AccessibilityPermissionView* explanation = content.get();
    Sheet* sheet = Sheet::present(this, std::move(content), AccessibilityPermissionView::sheetOptions());
    connect(explanation, &AccessibilityPermissionView::closed, sheet, &Sheet::dismiss);
    connect(sheet, &Sheet::closed, this, [this] { presentingPermissions = false; });
}

} // namespace Quillstacks
