#include "analysis/LexiwellSettingsView.h"

#include "analysis/AnalysisPreferences.h"
#include "interface/Card.h"
#include "interface/Label.h"
#include "interface/Switch.h"
#include "interface/SymbolImage.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace Quillstacks {
namespace {

Label* wrapped(const QString& text, TextStyle style) {
    auto* label = new Label(text, style, ColorRole::text2);
    label->setMaximumLines(0);
    return label;
}

QLayout* makeTitle() {
    auto* title = new QHBoxLayout;
    title->setSpacing(9);
    title->addWidget(new SymbolImage(QStringLiteral("stethoscope"), 19, ColorRole::blue));
    title->addWidget(new Label(QStringLiteral("Lexiwell"), TextStyle::headline), 1);
    return title;
}

QLayout* makeSwitchRow(QObject* context) {
    const QString name = QStringLiteral("Enable Lexiwell");
    auto* label = new Label(name, TextStyle::body);
    label->setTextStyle(TextStyle::body, QFont::Medium);
    auto* words = new QVBoxLayout;
    words->setSpacing(0);
    words->addWidget(label);
    words->addWidget(wrapped(QStringLiteral("Shows analysis panel in the prompt editor"), TextStyle::caption));
    auto* control = new Switch(name);
    control->setChecked(lexiwellEnabledPreference().value());
    QObject::connect(control, &QAbstractButton::toggled, context, [](bool on) { lexiwellEnabledPreference().set(on); });
    lexiwellEnabledPreference().observe(control,
                                        [control] { control->setChecked(lexiwellEnabledPreference().value()); });
    auto* row = new QHBoxLayout;
    row->setContentsMargins(0, 14, 0, 14);
    row->setSpacing(12);
    row->addLayout(words, 1);
    row->addWidget(control);
    return row;
}

Card* makeNote() {
    auto* note = new Card(Card::tinted(ColorRole::blue, 0.05, 0.2, 8));
    auto* row = new QHBoxLayout(note);
    row->setContentsMargins(10, 10, 10, 10);
    row->setSpacing(10);
    row->addWidget(new SymbolImage(QStringLiteral("info.circle"), 16, ColorRole::blue), 0, Qt::AlignTop);
    row->addWidget(wrapped(QStringLiteral("Analysis runs locally using Apple Intelligence. Your prompts are never sent "
                                          "to external servers."),
                           TextStyle::caption),
                   1);
    return note;
}

} // namespace

LexiwellSettingsView::LexiwellSettingsView(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("LexiwellSettingsView"));
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addLayout(makeTitle());
    column->addSpacing(6);
    column->addWidget(wrapped(QStringLiteral("Analyze prompt quality using Apple's local LLM. Provides suggestions to "
                                             "improve your prompts."),
                              TextStyle::subheadline));
    column->addLayout(makeSwitchRow(this));
    column->addWidget(makeNote());
}

} // namespace Quillstacks
