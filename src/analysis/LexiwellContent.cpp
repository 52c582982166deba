#include "LexiwellContent.h"

#include "Greys.h"
#include "GreySymbol.h"
#include "interface/BusyIndicator.h"
#include "interface/Label.h"
#include "LexiwellRows.h"
#include "LexiwellSection.h"

#include <QVBoxLayout>

#include <array>

namespace Quillstacks {
namespace {

constexpr int padding = 12;
constexpr int errorSpacing = 10;
constexpr int errorTop = 20;
constexpr int centredSpacing = 14;
constexpr int titleGap = 8; ///< below the title of a failure

struct Tip {
    const char* icon;
    const char* text;
};
constexpr std::array tips{Tip{"network", "Check your network connection and model availability"},
                          Tip{"server.rack", "If using Ollama, ensure it's running at the configured URL"},
                          Tip{"apple.logo", "Try switching to Apple Intelligence in Settings"},
                          Tip{"arrow.clockwise", "Click Analyze to try again"}};

Label* wrapped(const QString& text, TextStyle style, ColorRole role = ColorRole::text2) {
    auto* label = new Label(text, style, role);
    label->setMaximumLines(0);
    return label;
}

/// A symbol or an indicator over a line of text, in the middle of all the room there is.
QWidget* makeCentred(const QString& name, QWidget* symbol, const QString& text) {
    auto* content = new QWidget;
    content->setObjectName(name);
    auto* column = new QVBoxLayout(content);
    column->setContentsMargins(padding, padding, padding, padding);
    column->setSpacing(centredSpacing);
    column->addStretch();
    column->addWidget(symbol, 0, Qt::AlignHCenter);
    Label* label = wrapped(text, TextStyle::subheadline);
    label->setTextAlignment(Qt::AlignHCenter);
    column->addWidget(label);
    column->addStretch();
    return content;
}

} // namespace

QWidget* LexiwellContent::makeIdle() {
    auto* symbol = new GreySymbol(QStringLiteral("stethoscope"), 48, white(0.6F), 1.5);
    return makeCentred(QStringLiteral("LexiwellIdle"), symbol, QStringLiteral("Click Analyze to evaluate your prompt"));
}

QWidget* LexiwellContent::makeLoading() {
    const QString text = QStringLiteral("Analyzing prompt...");
    return makeCentred(QStringLiteral("LexiwellLoading"), new BusyIndicator(text), text);
}

QWidget* LexiwellContent::makeError(const QString& message) {
    auto* content = new QWidget;
    content->setObjectName(QStringLiteral("LexiwellError"));
    auto* column = new QVBoxLayout(content);
    column->setContentsMargins(padding, errorTop, padding, padding);
    column->setSpacing(errorSpacing);
    column->addWidget(new GreySymbol(QStringLiteral("exclamationmark.triangle.fill"), 32, white(0.45F)), 0,
                      Qt::AlignHCenter);
    auto* words = new QVBoxLayout;
    words->setContentsMargins(0, 0, 0, titleGap);
    words->setSpacing(2);
    auto* title = new Label(QStringLiteral("Analysis Failed"), TextStyle::headline);
    title->setColor(white(0.3F));
    title->setTextAlignment(Qt::AlignHCenter);
    words->addWidget(title);
    Label* subtitle = wrapped(QStringLiteral("Unable to analyze your prompt"), TextStyle::caption);
    subtitle->setTextAlignment(Qt::AlignHCenter);
    words->addWidget(subtitle);
    column->addLayout(words);
    auto* details = new LexiwellSection(QStringLiteral("info.circle.fill"), QStringLiteral("Error Details"));
    Label* text = wrapped(message, TextStyle::caption);
    text->setColor(white(0.35F));
    text->setSelectable(true);
    details->add(text);
    column->addWidget(details);
    auto* section =
        new LexiwellSection(QStringLiteral("wrench.and.screwdriver.fill"), QStringLiteral("Troubleshooting Tips"));
    for (const Tip& tip : tips)
        section->add(new TroubleshootingItem(QLatin1String(tip.icon), QLatin1String(tip.text)));
    column->addWidget(section);
    column->addStretch();
    return content;
}

} // namespace Quillstacks
