#include "shell/DataStoreErrorView.h"

#include "foundation/LocalizedError.h"
#include "interface/Button.h"
#include "interface/Card.h"
#include "interface/Label.h"
#include "interface/SymbolImage.h"
#include "interface/Theme.h"
#include "platform/Files.h"
#include "shell/StoreLocation.h"
#include "shell/Termination.h"

#include <QKeyEvent>
#include <QShortcut>
#include <QVBoxLayout>

namespace Quillstacks {

namespace {

constexpr int columnWidth = 600;
constexpr int panelWidth = 520; ///< of the column's 600, as the details are

template <typename Describe>
QString described(const std::exception_ptr& error, Describe describe) {
    try {
        std::rethrow_exception(error);
    } catch (const std::exception& failure) {
        return describe(failure);
    }
}

Label* centred(const QString& text, TextStyle style, ColorRole role) {
    auto* label = new Label(text, style, role);
    label->setMaximumLines(0);
    label->setTextAlignment(Qt::AlignHCenter);
    return label;
}

Card* panel(qreal radius) {
    Card::Look look;
    look.radius = radius;
    look.ground = [] { return Theme::shared().tint(ColorRole::text2, 0.1); };
    auto* card = new Card(look);
    card->setFixedWidth(panelWidth);
    return card;
}

QBoxLayout* solution(const QString& symbol, const QString& text) {
    auto* row = new QHBoxLayout;
    row->setSpacing(12);
    row->addWidget(new SymbolImage(symbol, 18, ColorRole::text2));
    row->addWidget(new Label(text), 1);
    return row;
}

} // namespace

DataStoreErrorView::DataStoreErrorView(std::exception_ptr failure, QWidget* parent)
    : QWidget(parent), error(std::move(failure)) {
    setObjectName(QStringLiteral("DataStoreErrorView"));
    build();
    auto* cancel = new QShortcut(Qt::Key_Escape, this);
    connect(cancel, &QShortcut::activated, this, &DataStoreErrorView::quit);
}

void DataStoreErrorView::build() {
    auto* column = new QVBoxLayout;
    column->setSpacing(0);
    column->addStretch();
    column->addWidget(new SymbolImage(QStringLiteral("exclamationmark.triangle.fill"), 64, ColorRole::red), 0,
                      Qt::AlignHCenter);
    column->addSpacing(18);
    auto* title = centred(QStringLiteral("Failed to Initialize Data Store"), TextStyle::title, ColorRole::text);
    title->setTextStyle(TextStyle::title, QFont::Bold);
    column->addWidget(title);
    column->addSpacing(6);
    column->addWidget(centred(described(error, &localizedDescription), TextStyle::body, ColorRole::text2));
    column->addSpacing(26);
    column->addWidget(makeSolutions(), 0, Qt::AlignHCenter);
    column->addSpacing(16);
    auto* show = new Button(QStringLiteral("Show Technical Details"), Button::Kind::link);
    show->setSymbol(QStringLiteral("info.circle"), 16);
    connect(show, &Button::clicked, this, &DataStoreErrorView::toggleFileLocation);
    column->addWidget(show, 0, Qt::AlignHCenter);
    column->addWidget(details = makeDetails(), 0, Qt::AlignHCenter);
    details->hide();
    column->addSpacing(26);
    column->addLayout(makeButtons());
    column->addStretch();

    auto* middle = new QHBoxLayout(this);
    middle->setContentsMargins(0, 24, 0, 24);
    middle->addStretch();
    auto* holder = new QWidget;
    holder->setFixedWidth(columnWidth);
    column->setContentsMargins(0, 0, 0, 0);
    holder->setLayout(column);
    middle->addWidget(holder);
    middle->addStretch();
}

QWidget* DataStoreErrorView::makeSolutions() {
    Card* card = panel(12);
    auto* lines = new QVBoxLayout(card);
    lines->setContentsMargins(24, 24, 24, 24);
    lines->setSpacing(12);
    lines->addWidget(new Label(QStringLiteral("Possible Solutions:"), TextStyle::headline));
    lines->addSpacing(2);
    const std::pair<const char*, const char*> solutions[] = {
        {"lock.shield", "Check disk permissions for Application Support folder"},
        {"server.rack", "Ensure sufficient disk space is available"},
        {"arrow.clockwise", "Try restarting the application"},
        {"questionmark.circle", "Contact support if the issue persists"},
    };
    for (const auto& [symbol, text] : solutions)
        lines->addLayout(solution(QString::fromLatin1(symbol), QString::fromLatin1(text)));
    return card;
}

QWidget* DataStoreErrorView::makeDetails() {
    // The space above belongs to the block, so that it goes with it.
    auto* block = new QWidget;
    auto* outer = new QVBoxLayout(block);
    outer->setContentsMargins(0, 12, 0, 0);
    Card* card = panel(8);
    outer->addWidget(card);
    auto* lines = new QVBoxLayout(card);
    lines->setContentsMargins(12, 12, 12, 12);
    lines->setSpacing(4);
    auto* heading = new Label(QStringLiteral("Error Details:"), TextStyle::caption);
    heading->setTextStyle(TextStyle::caption, QFont::Bold);
    lines->addWidget(heading);
    auto* description = new Label(described(error, &fullDescription), TextStyle::caption, ColorRole::text2);
    description->setMaximumLines(0);
    description->setSelectable(true);
    lines->addWidget(description);
    return block;
}

QBoxLayout* DataStoreErrorView::makeButtons() {
    auto* row = new QHBoxLayout;
    row->setSpacing(10);
    row->addStretch();
    auto* quitButton = new Button(QStringLiteral("Quit"));
    quitButton->setSize(Button::Size::large);
    connect(quitButton, &Button::clicked, this, &DataStoreErrorView::quit);
    row->addWidget(quitButton);
    auto* open = new Button(QStringLiteral("Open Application Support Folder"), Button::Kind::prominent);
    open->setSize(Button::Size::large);
    open->setDefault(true);
    connect(open, &Button::clicked, this, &DataStoreErrorView::openApplicationSupportFolder);
    row->addWidget(open);
    row->addStretch();
    return row;
}

void DataStoreErrorView::toggleFileLocation() {
    isShowingFileLocation = !isShowingFileLocation;
    details->setVisible(isShowingFileLocation);
}

void DataStoreErrorView::quit() {
    terminate();
}

void DataStoreErrorView::openApplicationSupportFolder() {
    const QString folder = StoreLocation::folder();
    if (!folder.isEmpty())
        Files::openFolder(folder);
}

void DataStoreErrorView::keyPressEvent(QKeyEvent* event) {
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!isReturn || !Button::pressDefault(this))
        QWidget::keyPressEvent(event);
}

} // namespace Quillstacks
