#include "hotkey/AccessibilityPermissionView.h"

#include "hotkey/PermissionManager.h"
#include "interface/Button.h"
#include "interface/Card.h"
#include "interface/Label.h"
#include "interface/SymbolImage.h"
#include "interface/Theme.h"
#include "platform/Accessibility.h"

#include <QGridLayout>
#include <QShowEvent>
#include <QVBoxLayout>

namespace Quillstacks {

namespace {

constexpr int sheetWidth = 500;
constexpr int padding = 40;
constexpr int symbolSize = 60;

Label* centred(const QString& text, TextStyle style, ColorRole role) {
    auto* label = new Label(text, style, role);
    label->setMaximumLines(0);
    label->setTextAlignment(Qt::AlignHCenter);
    return label;
}

void addStep(QGridLayout* steps, const QString& text) {
    const int row = steps->count() / 2;
    steps->addWidget(new Label(QStringLiteral("%1.").arg(row + 1), TextStyle::caption), row, 0, Qt::AlignTop);
    auto* label = new Label(text, TextStyle::caption);
    label->setMaximumLines(0);
    steps->addWidget(label, row, 1);
}

QWidget* makeSteps() {
    Card::Look look;
    look.radius = 10;
    look.ground = [] {
        QColor color = Theme::shared().color(ColorRole::quaternary);
        color.setAlphaF(color.alphaF() / 2);
        return color;
    };
    auto* card = new Card(look);
    auto* lines = new QVBoxLayout(card);
    lines->setContentsMargins(16, 16, 16, 16);
    lines->setSpacing(8);
    lines->addWidget(new Label(QStringLiteral("To enable:"), TextStyle::headline));
    auto* steps = new QGridLayout;
    steps->setSpacing(8);
    steps->setColumnStretch(1, 1);
    for (const char* text : {"Click \"Open System Settings\" below", "Find Quillstacks in the list",
                             "Toggle the switch to enable", "Return here and click \"Check Again\""})
        addStep(steps, QString::fromLatin1(text));
    lines->addLayout(steps);
    return card;
}

} // namespace

AccessibilityPermissionView::AccessibilityPermissionView(PermissionManager& manager, QWidget* parent)
    : QWidget(parent), permissionManager(manager), column(new QVBoxLayout(this)) {
    setObjectName(QStringLiteral("AccessibilityPermissionView"));
    column->setContentsMargins(padding, padding, padding, padding);
    showState();
}

Sheet::Options AccessibilityPermissionView::sheetOptions() {
    Sheet::Options options;
    options.accessibleName = QStringLiteral("Accessibility Permission");
    // Without the permission it has no button that closes it.
    options.escape = Sheet::Escape::dismisses;
    return options;
}

QSize AccessibilityPermissionView::sizeHint() const {
    return {sheetWidth, heightForWidth(sheetWidth)};
}

void AccessibilityPermissionView::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (!event->spontaneous())
        checkAgain();
}

void AccessibilityPermissionView::checkAgain() {
    const bool now = permissionManager.refreshPermission();
    if (now == granted)
        return;
    granted = now;
    showState();
}

void AccessibilityPermissionView::openSystemSettings() {
    Accessibility::openSettings();
}

void AccessibilityPermissionView::dismiss() {
    Q_EMIT closed();
}

void AccessibilityPermissionView::showState() {
    // The change comes from a button of the old content.
    if (content) {
        column->removeWidget(content);
        content->hide();
        content->deleteLater();
    }
    content = makeContent();
    column->addWidget(content);
    updateGeometry();
}

QWidget* AccessibilityPermissionView::makeContent() {
    auto* all = new QWidget(this);
    auto* lines = new QVBoxLayout(all);
    lines->setContentsMargins(0, 0, 0, 0);
    lines->setSpacing(20);
    lines->addWidget(
        granted ? new SymbolImage(QStringLiteral("checkmark.circle.fill"), symbolSize, ColorRole::green)
                : new SymbolImage(QStringLiteral("exclamationmark.triangle.fill"), symbolSize, ColorRole::orange),
        0, Qt::AlignHCenter);
    lines->addWidget(centred(granted ? QStringLiteral("Accessibility Permission Granted")
                                     : QStringLiteral("Accessibility Permission Required"),
                             TextStyle::title2, ColorRole::text));
    lines->addWidget(
        centred(granted ? QStringLiteral("Global hotkeys are now enabled. You can use your configured shortcut to "
                                         "quickly access prompts from anywhere.")
                        : QStringLiteral("Quillstacks needs Accessibility permission to register global keyboard "
                                         "shortcuts."),
                TextStyle::body, ColorRole::text2));
    if (!granted)
        lines->addWidget(makeSteps());
    lines->addLayout(makeButtons());
    return all;
}

QLayout* AccessibilityPermissionView::makeButtons() {
    auto* row = new QHBoxLayout;
    row->setSpacing(12);
    row->addStretch();
    if (granted) {
        auto* done = new Button(QStringLiteral("Done"), Button::Kind::prominent);
        done->setDefault(true);
        connect(done, &QAbstractButton::clicked, this, &AccessibilityPermissionView::dismiss);
        row->addWidget(done);
    } else {
        auto* open = new Button(QStringLiteral("Open System Settings"), Button::Kind::prominent);
        connect(open, &QAbstractButton::clicked, this, &AccessibilityPermissionView::openSystemSettings);
        row->addWidget(open);
        auto* check = new Button(QStringLiteral("Check Again"), Button::Kind::bordered);
        connect(check, &QAbstractButton::clicked, this, &AccessibilityPermissionView::checkAgain);
        row->addWidget(check);
    }
    row->addStretch();
    return row;
}

} // namespace Quillstacks
