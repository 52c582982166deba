#include "QuickAccessFooter.h"

#include "FillVariablesToggle.h"
#include "QuickAccessMetrics.h"

#include "interface/KeyCap.h"
#include "interface/Label.h"

#include <QHBoxLayout>

namespace Quillstacks {

namespace {

constexpr int paddingY = 10;
constexpr int gap = 16;
constexpr int hintGap = 7;

} // namespace

QuickAccessFooter::QuickAccessFooter(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("QuickAccessFooter"));
    fillVariables = new FillVariablesToggle(this);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(QuickAccessMetrics::padding, paddingY, QuickAccessMetrics::padding, paddingY);
    row->setSpacing(gap);
    row->addWidget(hint(QStringLiteral("↩"), QStringLiteral("to copy")));
    row->addWidget(hint(QStringLiteral("↑↓"), QStringLiteral("to navigate")));
    row->addStretch();
    row->addWidget(fillVariables);
    row->addWidget(hint(QStringLiteral("esc"), QStringLiteral("to close")));
}

QWidget* QuickAccessFooter::hint(const QString& keys, const QString& text) {
    auto* pair = new QWidget(this);
    auto* row = new QHBoxLayout(pair);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(hintGap);
    row->addWidget(new KeyCap(keys, pair));
    row->addWidget(new Label(text, TextStyle::caption, ColorRole::text2, pair));
    return pair;
}

} // namespace Quillstacks
