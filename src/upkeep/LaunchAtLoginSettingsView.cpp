#include "upkeep/LaunchAtLoginSettingsView.h"

#include "foundation/LocalizedError.h"
#include "foundation/Log.h"
#include "foundation/MainQueue.h"
#include "interface/Accessible.h"
#include "interface/Label.h"
#include "interface/Switch.h"
#include "interface/SymbolImage.h"
#include "platform/AppService.h"

#include <QGraphicsOpacityEffect>
#include <QHBoxLayout>
#include <QShowEvent>
#include <QVBoxLayout>

namespace Quillstacks {
namespace {

constexpr int feedbackHeight = 22;
constexpr int feedbackGap = 10;
constexpr int symbolSize = 14;
constexpr int fadeMilliseconds = 200;

bool isEnabledNow() {
    return AppService::mainApp().status() == AppService::Status::enabled;
}

} // namespace

LaunchAtLoginSettingsView::LaunchAtLoginSettingsView(QWidget* parent)
    : QWidget(parent), launchAtLogin(isEnabledNow()), fade(this, fadeMilliseconds) {
    setObjectName(QStringLiteral("LaunchAtLoginSettingsView"));
    build();
    toggle->setChecked(launchAtLogin);
    connect(toggle, &QAbstractButton::toggled, this, &LaunchAtLoginSettingsView::setLaunchAtLogin);
}

void LaunchAtLoginSettingsView::build() {
    const QString title = QStringLiteral("Launch at Login");
    auto* text = new Label(QStringLiteral("Keep Quillstacks ready the moment you log in. You can always open the main "
                                          "window later from the menu bar icon."),
                           TextStyle::caption, ColorRole::text2);
    text->setMaximumLines(0);
    auto* texts = new QVBoxLayout;
    texts->setSpacing(3);
    texts->addWidget(new Label(title, TextStyle::headline));
    texts->addWidget(text);
    toggle = new Switch(title);
    auto* row = new QHBoxLayout;
    row->setSpacing(16);
    row->addLayout(texts, 1);
    row->addWidget(toggle, 0, Qt::AlignTop);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addLayout(row);
    column->addSpacing(feedbackGap);
    column->addWidget(buildFeedback());
    column->addStretch();
}

QWidget* LaunchAtLoginSettingsView::buildFeedback() {
    feedbackLine = new QWidget;
    feedbackLine->setFixedHeight(feedbackHeight);
    setAccessibleTraits(feedbackLine, {QAccessible::AlertMessage, {}, {}, {}});
    successSymbol = new SymbolImage(QStringLiteral("checkmark.circle"), symbolSize, ColorRole::green, feedbackLine);
    failureSymbol =
        new SymbolImage(QStringLiteral("exclamationmark.triangle"), symbolSize, ColorRole::red, feedbackLine);
    feedbackText = new Label({}, TextStyle::caption, ColorRole::green, feedbackLine);
    auto* line = new QHBoxLayout(feedbackLine);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(7);
    line->addWidget(successSymbol);
    line->addWidget(failureSymbol);
    line->addWidget(feedbackText, 1);
    for (QWidget* part : {static_cast<QWidget*>(successSymbol), static_cast<QWidget*>(failureSymbol),
                          static_cast<QWidget*>(feedbackText)})
        part->hide();

    auto* opacity = new QGraphicsOpacityEffect(feedbackLine);
    feedbackLine->setGraphicsEffect(opacity);
    opacity->setEnabled(false);
    connect(&fade, &Transition::valueChanged, opacity, [opacity](qreal value) {
        opacity->setOpacity(value);
        opacity->setEnabled(value < 1);
    });
    return feedbackLine;
}

void LaunchAtLoginSettingsView::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (!event->spontaneous())
        appear();
}

void LaunchAtLoginSettingsView::appear() {
    const bool isEnabled = isEnabledNow();
    if (isEnabled == launchAtLogin)
        return;
    // Seen, not asked for: there is nothing to apply, and nothing to say about it.
    launchAtLogin = isEnabled;
    ++changes;
    toggle->setChecked(isEnabled);
}

void LaunchAtLoginSettingsView::setLaunchAtLogin(bool value) {
    changeValue(value, 0);
}

void LaunchAtLoginSettingsView::changeValue(bool value, double delay) {
    if (value == launchAtLogin)
        return;
    const bool oldValue = launchAtLogin;
    launchAtLogin = value;
    toggle->setChecked(value); // comes back here, and ends above
    MainQueue::after(delay, this, [this, oldValue, value, change = ++changes] {
        // A way back that somebody has overtaken by a newer press is over.
        if (change == changes)
            apply(oldValue, value);
    });
}

void LaunchAtLoginSettingsView::apply(bool oldValue, bool newValue) {
    if (isProcessing)
        return;
    isProcessing = true;
    try {
        newValue ? AppService::mainApp().registerItem() : AppService::mainApp().unregister();
        showFeedback({newValue ? QStringLiteral("Quillstacks will start after you log in.")
                               : QStringLiteral("Launch at login is disabled."),
                      false});
    } catch (const std::exception& error) {
        rollBack(oldValue, localizedDescription(error));
    }
    isProcessing = false;
}

void LaunchAtLoginSettingsView::rollBack(bool oldValue, const QString& reason) {
    Log::general.error(QStringLiteral("Could not update login item: ") + reason);
    // A change like any other, so the handler runs for it too. It asks for what holds already, which cannot fail.
    changeValue(oldValue, failureStays);
    showFeedback({QStringLiteral("Could not update login item: ") + reason, true});
}

void LaunchAtLoginSettingsView::showFeedback(FeedbackMessage message) {
    feedbackMessage = std::move(message);
    feedbackText->setText(feedbackMessage->text);
    feedbackText->setToolTip(feedbackMessage->text); // a reason may be too long for the line
    feedbackText->setColorRole(feedbackMessage->isError ? ColorRole::red : ColorRole::green);
    successSymbol->setVisible(!feedbackMessage->isError);
    failureSymbol->setVisible(feedbackMessage->isError);
    feedbackText->show();
    feedbackLine->setAccessibleName(feedbackMessage->text);
    QAccessibleEvent alert(feedbackLine, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
    fade.jump(0);
    fade.to(1);
}

} // namespace Quillstacks
