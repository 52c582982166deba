#include "DebugLogsSettingsView.h"

#include "interface/Button.h"
#include "interface/Label.h"
#include "interface/SymbolImage.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace Quillstacks {

DebugLogsSettingsView::DebugLogsSettingsView(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("DebugLogsSettingsView"));
    auto* heading = new QHBoxLayout;
    heading->setSpacing(9);
    heading->addWidget(new SymbolImage(QStringLiteral("doc.text.magnifyingglass"), 18, ColorRole::purple, this));
    heading->addWidget(new Label(QStringLiteral("Debug Logs"), TextStyle::headline, ColorRole::text, this), 1);
    auto* text = new Label(QStringLiteral("Export debug logs to help diagnose issues. Logs contain app events and "
                                          "errors but not your prompt content."),
                           TextStyle::subheadline, ColorRole::text2, this);
    text->setMaximumLines(0);
    auto* button = new Button(QStringLiteral("How to Export Logs"), Button::Kind::bordered, this);
    button->setSymbol(QStringLiteral("info.circle"));
    connect(button, &QAbstractButton::clicked, this, &DebugLogsSettingsView::logExportHelpRequested);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addLayout(heading);
    column->addSpacing(6);
    column->addWidget(text);
    column->addSpacing(12);
    column->addWidget(button, 0, Qt::AlignLeft);
}

} // namespace Quillstacks
