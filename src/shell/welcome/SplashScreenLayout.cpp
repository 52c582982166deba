// The parts of the welcome and their places; what they do is in SplashScreenView.cpp.
#include "CommandRow.h"

#include "hotkey/PermissionManager.h"
#include "hotkey/ShortcutField.h"
#include "interface/Button.h"
#include "interface/Card.h"
#include "interface/Divider.h"
#include "interface/Label.h"
#include "interface/ScrollArea.h"
#include "interface/StatusLine.h"
#include "interface/SymbolImage.h"
#include "interface/Theme.h"
#include "platform/Accessibility.h"
#include "shell/welcome/SplashScreenView.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace Quillstacks {
namespace {

constexpr int edge = 1; ///< of the card, which nothing may cover
constexpr int sidePadding = 44;
constexpr int topPadding = 44;
constexpr int bottomPadding = 36;
constexpr int cardPadding = 20;
constexpr int cardRadius = 14;
constexpr int recorderHeight = 46;
constexpr int changeWidth = 84;
/// The permission's card takes its room from the spaces around the others.
constexpr int headingSpace = 36;
constexpr int headingSpaceWithPermission = 20;
constexpr QMargins headerSpace{0, 30, 0, 48};
constexpr QMargins headerSpaceWithPermission{0, 0, 0, 22};

Card::Look plainCard() {
    Card::Look look;
    look.radius = cardRadius;
    look.ground = [] { return Theme::shared().ink(0.045); };
    return look;
}

QLayout* cardHeading(const QString& symbol, int size, ColorRole role, const QString& text) {
    auto* row = new QHBoxLayout;
    row->setSpacing(10);
    row->addWidget(new SymbolImage(symbol, size, role));
    row->addWidget(new Label(text, TextStyle::headline), 1);
    return row;
}

Label* paragraph(const QString& text) {
    auto* label = new Label(text, TextStyle::subheadline, ColorRole::text2);
    label->setMaximumLines(0);
    return label;
}

QVBoxLayout* columnIn(QWidget* widget, const QMargins& margins) {
    auto* column = new QVBoxLayout(widget);
    column->setContentsMargins(margins);
    column->setSpacing(0);
    return column;
}

} // namespace

void SplashScreenView::build() {
    scroll = new ScrollArea(this);
    scroll->setContent(buildContent());
    scroll->setBottomFade(ColorRole::sheet);
    finishButton = new Button(QStringLiteral("Got it, let's go!"), Button::Kind::prominent, this);
    finishButton->setSize(Button::Size::tall);
    finishButton->setDefault(true);
    connect(finishButton, &QAbstractButton::clicked, this, &SplashScreenView::finish);
    // Beneath what scrolls, so that it can be reached on the lowest screen.
    auto* foot = new QHBoxLayout;
    foot->setContentsMargins(sidePadding - edge, 12, sidePadding - edge, bottomPadding);
    foot->addWidget(finishButton);
    QVBoxLayout* all = columnIn(this, {edge, 0, edge, 0});
    all->addWidget(scroll, 1);
    all->addLayout(foot);
    setFocusProxy(finishButton);
}

QWidget* SplashScreenView::buildContent() {
    auto* content = new QWidget;
    column = columnIn(content, {sidePadding - edge, topPadding, sidePadding - edge, 0});
    header = buildHeader();
    column->addWidget(header);
    column->addWidget(buildShortcutCard());
    headingGap = new QSpacerItem(0, headingSpace, QSizePolicy::Minimum, QSizePolicy::Fixed);
    column->addSpacerItem(headingGap);
    auto* heading = new QHBoxLayout;
    heading->setContentsMargins(2, 0, 2, 10);
    heading->addWidget(new Label(QStringLiteral("Other Shortcuts"), TextStyle::headline));
    column->addLayout(heading);
    column->addWidget(buildCommands());
    permissionCard = buildPermissionCard();
    column->addWidget(permissionCard);
    column->addStretch(1);
    return content;
}

QWidget* SplashScreenView::buildHeader() {
    auto* top = new QWidget;
    QVBoxLayout* lines = columnIn(top, headerSpace);
    lines->addWidget(new SymbolImage(QStringLiteral("circle.dotted.circle.fill"), 56, ColorRole::accent), 0,
                     Qt::AlignHCenter);
    lines->addSpacing(18);
    auto* title = new Label(QStringLiteral("Welcome to Quillstacks"), TextStyle::title);
    title->setTextAlignment(Qt::AlignHCenter);
    lines->addWidget(title);
    lines->addSpacing(6);
    auto* text = new Label(QStringLiteral("Access your prompts from the menu bar"), TextStyle::body, ColorRole::text2);
    text->setTextAlignment(Qt::AlignHCenter);
    lines->addWidget(text);
    return top;
}

QWidget* SplashScreenView::buildShortcutCard() {
    auto* card = new Card(plainCard());
    QVBoxLayout* lines = columnIn(card, {cardPadding, cardPadding, cardPadding, cardPadding});
    lines->addLayout(cardHeading(QStringLiteral("keyboard.fill"), 20, ColorRole::text2,
                                 QStringLiteral("Set Your Quick Access Shortcut")));
    lines->addSpacing(6);
    lines->addWidget(
        paragraph(QStringLiteral("Choose a keyboard shortcut to instantly access your prompts from anywhere.")));
    lines->addSpacing(14);
    lines->addLayout(buildRecorder());
    savedNotice = new StatusLine;
    lines->addWidget(savedNotice);
    return card;
}

QLayout* SplashScreenView::buildRecorder() {
    field = new ShortcutField(ColorRole::purple);
    field->setLarge(true);
    changeButton = new Button(QStringLiteral("Change"), Button::Kind::bordered);
    changeButton->setSize(Button::Size::field);
    changeButton->setFixedHeight(recorderHeight);
    changeButton->setMinimumWidth(changeWidth);
    connect(changeButton, &QAbstractButton::clicked, this, &SplashScreenView::toggleRecording);
    auto* row = new QHBoxLayout;
    row->setSpacing(10);
    row->addWidget(field, 1);
    row->addWidget(changeButton);
    return row;
}

QWidget* SplashScreenView::buildCommands() {
    auto* card = new Card(plainCard());
    QVBoxLayout* lines = columnIn(card, {cardPadding, 5, cardPadding, 5});
    lines->addWidget(new CommandRow({QStringLiteral("plus.circle"), QStringLiteral("New Prompt"),
                                     QStringLiteral("Create a new prompt"), QString::fromUtf16(u"⌘N")}));
    lines->addWidget(new Divider);
    lines->addWidget(new CommandRow({QStringLiteral("gearshape"), QStringLiteral("Settings"),
                                     QStringLiteral("Configure preferences"), QString::fromUtf16(u"⌘,")}));
    return card;
}

QWidget* SplashScreenView::buildPermissionCard() {
    // The space above belongs to it, so that it goes with it.
    auto* holder = new QWidget;
    auto* card = new Card(Card::tinted(ColorRole::orange, 0.08, 0.22, cardRadius));
    columnIn(holder, {0, 20, 0, 0})->addWidget(card);
    QVBoxLayout* lines = columnIn(card, {cardPadding, cardPadding, cardPadding, cardPadding});
    lines->addLayout(cardHeading(QStringLiteral("exclamationmark.triangle.fill"), 19, ColorRole::orange,
                                 QStringLiteral("Accessibility Permission Required")));
    lines->addSpacing(6);
    lines->addWidget(
        paragraph(QStringLiteral("Required for global keyboard shortcuts to access your prompts from anywhere.")));
    lines->addSpacing(12);
    auto* grant = new Button(QStringLiteral("Grant Permission"), Button::Kind::prominent);
    connect(grant, &QAbstractButton::clicked, this, &SplashScreenView::grantPermission);
    lines->addWidget(grant, 0, Qt::AlignLeft);
    return holder;
}

void SplashScreenView::showPermission() {
    // The manager looks for the first time only after the welcome has come; what is held already must not flash by.
    const bool isMissing =
        !PermissionManager::shared().hasAccessibilityPermission() && !Accessibility::isProcessTrusted(false);
    permissionCard->setVisible(isMissing);
    header->layout()->setContentsMargins(isMissing ? headerSpaceWithPermission : headerSpace);
    headingGap->changeSize(0, isMissing ? headingSpaceWithPermission : headingSpace, QSizePolicy::Minimum,
                           QSizePolicy::Fixed);
    column->invalidate();
}

} // namespace Quillstacks
