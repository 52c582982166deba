#include "LogExportHelpView.h"

#include "foundation/MainQueue.h"
#include "interface/Button.h"
#include "interface/Card.h"
#include "interface/Divider.h"
#include "interface/IconButton.h"
#include "interface/Label.h"
#include "interface/ScrollArea.h"
#include "platform/Clipboard.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace Quillstacks {
namespace {

constexpr int sheetWidth = 640;
constexpr int padding = 24;
constexpr double copiedSeconds = 2.0;

Label* paragraph(const QString& text, TextStyle style, ColorRole role) {
    auto* label = new Label(text, style, role);
    label->setMaximumLines(0);
    return label;
}

QVBoxLayout* columnIn(QWidget* widget, int margin) {
    auto* column = new QVBoxLayout(widget);
    column->setContentsMargins(margin, margin, margin, margin);
    column->setSpacing(0);
    return column;
}

} // namespace

LogExportHelpView::LogExportHelpView(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("LogExportHelpView"));
    header = buildHeader();
    scroll = new ScrollArea(this);
    scroll->setContent(buildBody());
    auto* column = columnIn(this, 0);
    column->addLayout(header);
    column->addWidget(new Divider(Qt::Horizontal, ColorRole::separator, this));
    column->addWidget(scroll, 1);
}

QString LogExportHelpView::command() {
    return QStringLiteral("journalctl SYSLOG_IDENTIFIER=app.Quillstacks --since \"1 hour ago\" -o short-precise > "
                          "\"$(xdg-user-dir DESKTOP)/Quillstacks_logs.txt\"");
}

Sheet::Options LogExportHelpView::sheetOptions() {
    Sheet::Options options;
    options.accessibleName = QStringLiteral("Export Debug Logs");
    options.escape = Sheet::Escape::dismisses;
    return options;
}

QSize LogExportHelpView::sizeHint() const {
    // As high as its content at this width, so that it scrolls only where the window is too small for it.
    return {sheetWidth, header->sizeHint().height() + 1 + scroll->widget()->heightForWidth(sheetWidth)};
}

QLayout* LogExportHelpView::buildHeader() {
    auto* title = new Label(QStringLiteral("Export Debug Logs"), TextStyle::title2, ColorRole::text, this);
    auto* done = new Button(QStringLiteral("Done"), Button::Kind::prominent, this);
    done->setDefault(true);
    connect(done, &QAbstractButton::clicked, this, &LogExportHelpView::dismiss);
    auto* row = new QHBoxLayout;
    row->setContentsMargins(padding, 20, padding, 20);
    row->addWidget(title, 1);
    row->addWidget(done);
    return row;
}

QWidget* LogExportHelpView::buildBody() {
    auto* body = new QWidget;
    auto* column = columnIn(body, padding);
    column->addWidget(new Label(QStringLiteral("How to Export Logs"), TextStyle::headline));
    column->addSpacing(6);
    column->addWidget(paragraph(QStringLiteral("If you're experiencing issues, you can export debug logs to help "
                                               "diagnose the problem."),
                                TextStyle::body, ColorRole::text2));
    column->addSpacing(20);
    column->addWidget(buildTerminalSection());
    column->addStretch();
    return body;
}

Card* LogExportHelpView::buildTerminalSection() {
    auto* section = new Card(Card::tinted(ColorRole::green, 0.05, 0.18, 12));
    auto* column = columnIn(section, 20);
    column->addWidget(new Label(QStringLiteral("Terminal"), TextStyle::headline, ColorRole::green));
    column->addSpacing(6);
    column->addWidget(
        paragraph(QStringLiteral("Copy and paste this command in Terminal to export the last hour of logs:"),
                  TextStyle::subheadline, ColorRole::text2));
    column->addSpacing(12);
    column->addWidget(buildCommandBox());
    column->addSpacing(12);
    column->addWidget(paragraph(QStringLiteral("The logs will be saved to your Desktop as Quillstacks_logs.txt"),
                                TextStyle::caption, ColorRole::text2));
    return section;
}

Card* LogExportHelpView::buildCommandBox() {
    auto* box = new Card(Card::box(ColorRole::field, ColorRole::border, 8));
    auto* text = new QVBoxLayout;
    text->setContentsMargins(0, 4, 0, 4);
    text->addWidget(paragraph(command(), TextStyle::monoSubheadline, ColorRole::text));
    auto* row = new QHBoxLayout(box);
    row->setContentsMargins(12, 8, 8, 8);
    row->setSpacing(12);
    row->addLayout(text, 1);
    copyButton =
        new IconButton(QStringLiteral("doc.on.doc"), QStringLiteral("Copy to clipboard"), IconButton::Size::row);
    connect(copyButton, &QAbstractButton::clicked, this, &LogExportHelpView::copyCommand);
    row->addWidget(copyButton, 0, Qt::AlignTop);
    return box;
}

void LogExportHelpView::copyCommand() {
    Clipboard::clearContents();
    Clipboard::setString(command());
    setShowCopiedAlert(true);
    // Never taken back: after a second copy the first one's end counts as well.
    MainQueue::after(copiedSeconds, this, [this] { setShowCopiedAlert(false); });
}

void LogExportHelpView::setShowCopiedAlert(bool shown) {
    showingCopied = shown;
    copyButton->changeSymbol(shown ? QStringLiteral("checkmark") : QStringLiteral("doc.on.doc"));
}

void LogExportHelpView::dismiss() {
    Q_EMIT closed();
}

} // namespace Quillstacks
