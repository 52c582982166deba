#include "mainwindow/HelpView.h"

#include "interface/Button.h"
#include "interface/Label.h"
#include "ShortcutRow.h"

#include <QVBoxLayout>

namespace Quillstacks {
namespace {

constexpr int sheetWidth = 480;
constexpr int sidePadding = 32;
constexpr int rowGap = 16;

struct Shortcut {
    const char* title;
    const char16_t* keys;
};
constexpr Shortcut shortcuts[] = {
    {"Quick Access", u"⇧⌘Space (default)"},
    {"New Prompt", u"P or ⌘N"},
    {"Edit Selected Prompt", u"Return or E"},
    {"New Tag", u"T"},
    {"Save Prompt", u"⌘S"},
    {"Navigate Prompts", u"↑↓"},
    {"Settings", u"⌘,"},
    {"Help", u"⌘H"},
};

} // namespace

HelpView::HelpView(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("HelpView"));
    auto* rows = new QVBoxLayout;
    rows->setSpacing(rowGap);
    for (const Shortcut& shortcut : shortcuts)
        rows->addWidget(new ShortcutRow(QString::fromLatin1(shortcut.title), QString::fromUtf16(shortcut.keys), this));
    auto* close = new Button(QStringLiteral("Close"), Button::Kind::prominent, this);
    close->setDefault(true);
    connect(close, &QAbstractButton::clicked, this, &HelpView::dismiss);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(sidePadding, sidePadding, sidePadding, 24);
    column->setSpacing(0);
    column->addWidget(new Label(QStringLiteral("Keyboard Shortcuts"), TextStyle::largeTitle, ColorRole::text, this));
    column->addSpacing(24);
    column->addLayout(rows);
    column->addSpacing(28);
    column->addWidget(close, 0, Qt::AlignRight);
}

Sheet::Options HelpView::sheetOptions() {
    Sheet::Options options;
    options.accessibleName = QStringLiteral("Keyboard Shortcuts");
    options.escape = Sheet::Escape::dismisses;
    return options;
}

QSize HelpView::sizeHint() const {
    return {sheetWidth, layout()->sizeHint().height()};
}

void HelpView::dismiss() {
    Q_EMIT closed();
}

} // namespace Quillstacks
