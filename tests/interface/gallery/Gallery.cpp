#include "Gallery.h"

#include "interface/Alert.h"
#include "interface/Button.h"
#include "interface/Card.h"
#include "interface/Chip.h"
#include "interface/Drawing.h"
#include "interface/IconButton.h"
#include "interface/KeyCap.h"
#include "interface/Label.h"
#include "interface/Menu.h"
#include "interface/ScrollArea.h"
#include "interface/SegmentedPicker.h"
#include "interface/Sheet.h"
#include "interface/Stepper.h"
#include "interface/Switch.h"
#include "interface/TextArea.h"
#include "interface/TextField.h"
#include "interface/Theme.h"
#include "interface/ToastView.h"

#include <QCoreApplication>
#include <QEnterEvent>
#include <QFocusEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QTimer>
#include <QVBoxLayout>

namespace Quillstacks {
namespace {

constexpr int left = 36;
constexpr int right = 662;

struct Swatch {
    const char* name;
    ColorRole role;
};
constexpr Swatch swatches[] = {{"Sidebar", ColorRole::sidebar},
                               {"Content", ColorRole::window},
                               {"Sheet", ColorRole::sheet},
                               {"Card", ColorRole::card},
                               {"Field", ColorRole::field},
                               {"Popover", ColorRole::popover},
                               {"Accent fill", ColorRole::accentFill},
                               {"Accent", ColorRole::accent},
                               {"Red", ColorRole::red},
                               {"Orange", ColorRole::orange},
                               {"Green", ColorRole::green},
                               {"Blue", ColorRole::blue},
                               {"Purple", ColorRole::purple},
                               {"Text", ColorRole::text},
                               {"Secondary", ColorRole::text2},
                               {"Tertiary", ColorRole::text3}};

} // namespace

Gallery::Gallery() {
    setFixedSize(1280, 1040);
    buttons();
    fields();
    pickers();
    capsAndChips();
    type();
    colors();
    menuAndToast();
    rows();
    more();
}

void Gallery::place(QWidget* widget, int x, int y, int width) {
    widget->setParent(this);
    const QSize hint = widget->sizeHint();
    const int used = width > 0 ? width : hint.width();
    widget->setGeometry(x, y, used, widget->hasHeightForWidth() ? widget->heightForWidth(used) : hint.height());
}

void Gallery::heading(const QString& text, int x, int y) {
    auto* label = new Label(text, TextStyle::caption, ColorRole::text3);
    label->setTextStyle(TextStyle::caption, QFont::DemiBold);
    place(label, x, y);
}

void Gallery::caption(const QString& text, int x, int y, int width) {
    auto* label = new Label(text, TextStyle::caption, ColorRole::text2);
    label->setMaximumLines(2);
    place(label, x, y, width);
}

void Gallery::buttons() {
    heading(QStringLiteral("Buttons"), left, 32);
    const char* states[] = {"Rest", "Hover", "Pressed", "Focus", "Disabled"};
    for (int i = 0; i < 5; ++i)
        place(new Label(QLatin1String(states[i]), TextStyle::caption2, ColorRole::text3), 140 + 94 * i, 59);
    const std::tuple<const char*, const char*, Button::Kind> kinds[] = {
        {"Prominent", "Save", Button::Kind::prominent},
        {"Bordered", "Cancel", Button::Kind::bordered},
        {"Borderless", "Clear", Button::Kind::borderless},
        {"Destructive", "Delete", Button::Kind::destructive},
        {"Destructive, alert", "Delete", Button::Kind::destructiveFill}};
    int y = 84;
    for (const auto& [name, title, kind] : kinds) {
        const bool twoLines = kind == Button::Kind::destructiveFill;
        caption(QLatin1String(name), left, y + (twoLines ? 0 : 7), 92);
        for (int i = 0; i < 5; ++i) {
            auto* button = new Button(QLatin1String(title), kind);
            place(button, 140 + 94 * i, y, 82);
            if (i == 1 || i == 2)
                hovered += button;
            if (i == 2)
                pressed += button;
            if (i == 3)
                focused += button;
            button->setEnabled(i != 4);
        }
        y += 40;
    }
}

void Gallery::fields() {
    heading(QStringLiteral("Text field, height 32"), left, 310);
    const char* texts[] = {"", "Hover", "Focus", "Disabled"};
    for (int i = 0; i < 4; ++i) {
        auto* field = new TextField(QStringLiteral("Search"));
        field->setText(QLatin1String(texts[i]));
        place(field, left + i * 149, 338, 137);
        if (i == 1)
            hovered += field;
        if (i == 2)
            focused += field;
        field->setEnabled(i != 3);
    }
    heading(QStringLiteral("Text area, value field, search field"), left, 396);
    auto* area = new TextArea(QStringLiteral("Enter value"));
    area->setText(QStringLiteral("Two lines of text,\nin a field that grows"));
    place(area, left, 424, 220);
    place(new TextArea(QStringLiteral("Enter value for tone")), left, 490, 220);
    place(new TextField(QStringLiteral("Enter value"), TextField::Variant::value), 276, 424, 160);
    auto* search = new TextField(QStringLiteral("Search"));
    search->setSymbol(QStringLiteral("magnifyingglass"));
    place(search, 276, 476, 160);
    auto* title = new TextField(QStringLiteral("Title"), TextField::Variant::title);
    title->setText(QStringLiteral("A title"));
    place(title, 452, 424, 160);
}

void Gallery::pickers() {
    heading(QStringLiteral("Segmented picker, switch, stepper"), left, 540);
    auto* picker = new SegmentedPicker(QStringLiteral("Appearance"),
                                       {{QStringLiteral("System"), QStringLiteral("circle.lefthalf.filled")},
                                        {QStringLiteral("Light"), QStringLiteral("sun.max.fill")},
                                        {QStringLiteral("Dark"), QStringLiteral("moon.fill")}});
    picker->setSelection(2);
    place(picker, left, 569, 290);
    for (int i = 0; i < 3; ++i) {
        auto* control = new Switch(QStringLiteral("A switch"));
        control->setChecked(i > 0);
        control->setEnabled(i < 2);
        place(control, 344 + 56 * i, 573);
    }
    auto* stepper = new Stepper(QStringLiteral("Versions"), 0, 10);
    stepper->setValue(5);
    place(stepper, 512, 568);
}

void Gallery::capsAndChips() {
    heading(QStringLiteral("Key caps, chips"), left, 626);
    int x = left;
    for (const char16_t* keys : {u"↩", u"↑↓", u"esc"}) {
        auto* cap = new KeyCap(QString::fromUtf16(keys));
        place(cap, x, 657);
        x += cap->width() + 10;
    }
    auto* large = new KeyCap(QString::fromUtf16(u"⇧⌘Space (default)"));
    large->setLarge(true);
    place(large, x, 654);
    place(new Chip(QStringLiteral("Email"), QColor(0xF6C549)), 182, 692);
    auto* on = new Chip(QStringLiteral("Learning"), QColor(0x2BB673));
    on->setChecked(true);
    place(on, 252, 692);
}

void Gallery::type() {
    heading(QStringLiteral("Type"), right, 32);
    const std::tuple<const char*, TextStyle, ColorRole> lines[] = {
        {"Large title 26 / 32", TextStyle::largeTitle, ColorRole::text},
        {"Title 22 / 28", TextStyle::title, ColorRole::text},
        {"Title 2, 18 / 24", TextStyle::title2, ColorRole::text},
        {"Title 3, 16 / 22", TextStyle::title3, ColorRole::text},
        {"Headline 14 / 20", TextStyle::headline, ColorRole::text},
        {"Body 14 / 20", TextStyle::body, ColorRole::text},
        {"Subheadline 13 / 18, secondary", TextStyle::subheadline, ColorRole::text2},
        {"Caption 12 / 16, secondary", TextStyle::caption, ColorRole::text2},
        {"Caption 2, 11 / 14, tertiary", TextStyle::caption2, ColorRole::text3}};
    int y = 60;
    for (const auto& [text, style, role] : lines) {
        auto* label = new Label(QLatin1String(text), style, role);
        place(label, right, y);
        y += label->height() + (style < TextStyle::headline ? 4 : 0);
    }
}

void Gallery::colors() {
    heading(QStringLiteral("Grounds and system colours"), right, 296);
    for (int i = 0; i < 16; ++i) {
        const int x = right + 74 * (i % 8);
        const int y = 324 + 69 * (i / 8);
        auto* card = new Card(Card::box(swatches[i].role, ColorRole::border, 8));
        card->setParent(this);
        card->setGeometry(x, y, 64, 40);
        place(new Label(QLatin1String(swatches[i].name), TextStyle::caption2, ColorRole::text2), x, y + 45);
    }
}

void Gallery::menuAndToast() {
    heading(QStringLiteral("Menu and toast"), right, 478);
    auto* shown = new Menu(this);
    shown->setAttribute(Qt::WA_DeleteOnClose, false);
    const auto nothing = [] {};
    shown->setActiveAction(shown->add(QStringLiteral("pencil"), QStringLiteral("Edit"), nothing));
    shown->add(QStringLiteral("star"), QStringLiteral("Pin to Top"), nothing);
    shown->addSeparator();
    shown->addDestructive(QStringLiteral("trash"), QStringLiteral("Delete"), nothing);
    menu = shown;
    menuPlace = {right, 506};
    auto* toast = new ToastView(this);
    toast->setMessage(QStringLiteral("Copied to clipboard"));
    const int margin = ToastView::shadowMargin();
    toast->setGeometry(QRect(QPoint(910, 532), toast->groundSize(600)).adjusted(-margin, -margin, margin, margin));
}

void Gallery::rows() {
    heading(QStringLiteral("Icon buttons, button sizes, link"), right, 645);
    auto* gear = new IconButton(QStringLiteral("gear"), QStringLiteral("Settings"));
    place(gear, right, 673);
    auto* help = new IconButton(QStringLiteral("questionmark.circle"), QStringLiteral("Help"));
    place(help, right + 40, 673);
    hovered += help;
    auto* done =
        new IconButton(QStringLiteral("checkmark.circle.fill"), QStringLiteral("Copied"), IconButton::Size::row);
    done->setColor(ColorRole::green);
    place(done, right + 84, 675);
    auto* off = new IconButton(QStringLiteral("pencil"), QStringLiteral("Edit"), IconButton::Size::row);
    off->setEnabled(false);
    place(off, right + 118, 675);
    auto* create = new Button(QStringLiteral("New Prompt"));
    create->setSymbol(QStringLiteral("plus"), 14);
    place(create, right + 160, 674);
    auto* small = new Button(QStringLiteral("Analyze"));
    small->setSize(Button::Size::small);
    place(small, right + 300, 676);
    auto* copy = new Button(QStringLiteral("Copy"));
    copy->setSize(Button::Size::field);
    copy->setSymbol(QStringLiteral("doc.on.doc"));
    place(copy, right + 380, 669);
    auto* link = new Button(QStringLiteral("Show Technical Details"), Button::Kind::link);
    link->setSymbol(QStringLiteral("info.circle"), 16);
    place(link, right, 724);
}

void Gallery::more() {
    auto* note = new Card(Card::tinted(ColorRole::blue, .05, .2, 8));
    note->setParent(this);
    note->setGeometry(right, 780, 582, 60);
    auto* text =
        new Label(QStringLiteral("A note of two lines. What does not fit within its lines ends in an ellipsis at the "
                                 "end of the last one, as here, where there is a good deal more text than room."),
                  TextStyle::subheadline, ColorRole::text2);
    text->setMaximumLines(2);
    place(text, right + 12, 792, 400);
    auto* card = new Card;
    card->setParent(this);
    card->setGeometry(left, 760, 582, 120);
    auto* field = new TextField;
    field->setText(QStringLiteral("http://localhost:11434"));
    place(field, left + 20, 800, 300);
}

void Gallery::setStates() {
    for (QWidget* widget : hovered) {
        QEnterEvent enter({4, 4}, {4, 4}, {4, 4});
        QCoreApplication::sendEvent(widget, &enter);
    }
    for (QWidget* widget : pressed) {
        QMouseEvent press(QEvent::MouseButtonPress, QPointF(4, 4), QPointF(4, 4), Qt::LeftButton, Qt::LeftButton, {});
        QCoreApplication::sendEvent(widget, &press);
    }
    if (Sheet::top(this))
        return; // the keyboard is the sheet's
    for (QWidget* widget : focused) {
        if (qobject_cast<TextField*>(widget)) {
            widget->setFocus(Qt::TabFocusReason);
            continue;
        }
        QFocusEvent focus(QEvent::FocusIn, Qt::TabFocusReason);
        QCoreApplication::sendEvent(widget, &focus);
    }
}

void Gallery::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    QTimer::singleShot(100, this, [this] { setStates(); });
}

void Gallery::showSheets() {
    auto content = std::make_unique<QWidget>();
    auto* column = new QVBoxLayout(content.get());
    column->setContentsMargins(24, 20, 24, 20);
    column->setSpacing(16);
    column->addWidget(new TextField(QStringLiteral("Title"), TextField::Variant::title));
    auto* scroll = new ScrollArea;
    auto* text = new Label(QStringLiteral("A line of the text that scrolls.\n").repeated(60));
    text->setMaximumLines(0);
    scroll->setContent(text);
    scroll->setBottomFade(ColorRole::sheet);
    column->addWidget(scroll);
    auto* row = new QHBoxLayout;
    row->addStretch();
    row->addWidget(new Button(QStringLiteral("Cancel")));
    row->addWidget(new Button(QStringLiteral("Save"), Button::Kind::prominent));
    column->addLayout(row);
    Sheet::Options options;
    options.preferredSize = {700, 700};
    Sheet::present(this, std::move(content), options);
    Alert::show(this,
                {QStringLiteral("Delete Prompt?"), QStringLiteral("This action cannot be undone."),
                 QStringLiteral("Delete"), true},
                {});
}

QPixmap Gallery::picture() {
    QPixmap page = grab();
    if (Sheet::top(this))
        return page;
    QPainter painter(&page);
    menu->ensurePolished();
    menu->resize(menu->sizeHint());
    painter.drawPixmap(menuPlace, menu->grab());
    return page;
}

void Gallery::paintEvent(QPaintEvent*) {
    const Theme& theme = Theme::shared();
    QPainter painter(this);
    painter.fillRect(rect(), theme.color(ColorRole::sheet));
    ChipStyle::row().paintRow(
        painter, {left, 696}, 140, 8,
        {{QStringLiteral("Code"), QColor(0x4D96FF)}, {QStringLiteral("Writing"), QColor(0x7C5CFC)}});
    ChipStyle::quickAccess().paintRow(
        painter, {360, 697}, 200, 6,
        {{QStringLiteral("Code"), QColor(0x4D96FF)}, {QStringLiteral("Review"), QColor(0xFF6B6B)}});
}

} // namespace Quillstacks
