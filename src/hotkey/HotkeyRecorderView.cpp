#include "hotkey/HotkeyRecorderView.h"

#include "hotkey/HotkeyRecording.h"
#include "hotkey/ShortcutField.h"
#include "interface/Button.h"

#include <QHBoxLayout>

namespace Quillstacks {

HotkeyRecorderView::HotkeyRecorderView(std::shared_ptr<HotkeyRecording> shared, QWidget* parent)
    : QWidget(parent), recording(std::move(shared)) {
    setObjectName(QStringLiteral("HotkeyRecorderView"));
    field = new ShortcutField(ColorRole::accent, this);
    button = new Button(QStringLiteral("Record"), Button::Kind::bordered, this);
    button->setSize(Button::Size::field);
    button->setMinimumWidth(button->sizeHint().width()); // of the longer of its titles
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(10);
    row->addWidget(field, 1);
    row->addWidget(button);
    connect(button, &QAbstractButton::clicked, recording.get(), &HotkeyRecording::toggle);
    connect(recording.get(), &HotkeyRecording::changed, this, &HotkeyRecorderView::refresh);
    refresh();
}

HotkeyRecorderView::~HotkeyRecorderView() = default;

void HotkeyRecorderView::setShortcut(quint64 newModifiers, quint16 newKeyCode) {
    modifiers = newModifiers;
    keyCode = newKeyCode;
    refresh();
}

const QString& HotkeyRecorderView::text() const {
    return field->text();
}

void HotkeyRecorderView::refresh() {
    field->setShortcut(recording->recordedModifiers.value_or(modifiers), recording->recordedKeyCode.value_or(keyCode));
    field->setRecording(recording->isRecording());
    button->setTitle(recording->isRecording() ? QStringLiteral("Stop") : QStringLiteral("Record"));
}

} // namespace Quillstacks
