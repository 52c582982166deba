#include "PromptPanelColumn.h"

#include "interface/Card.h"
#include "interface/Theme.h"

#include <QEvent>
#include <QVBoxLayout>

namespace Quillstacks {
namespace {

constexpr int gap = 16;
constexpr int foldTime = 200; ///< milliseconds
constexpr int edge = 1;
constexpr qreal radius = 12;
constexpr int leastWidth = 300;
constexpr int idealWidth = 450;
constexpr int panelLeastHeight = 120;

int ownHeight(const Card* frame) {
    return frame ? frame->sizeHint().height() : 0;
}

int between(int from, int to, qreal progress) {
    return from + qRound((to - from) * progress);
}

} // namespace

PromptPanelColumn::PromptPanelColumn(QWidget* parent) : QWidget(parent), fold(this, foldTime) {
    setObjectName(QStringLiteral("PromptPanelColumn"));
    fold.jump(1);
    connect(&fold, &Transition::valueChanged, this, &PromptPanelColumn::place);
}

void PromptPanelColumn::setVariablesPanel(QWidget* panel) {
    setPanel(variables, panel);
}

void PromptPanelColumn::setAnalysisPanel(QWidget* panel) {
    setPanel(analysis, panel);
    state.lexiwellEnabled = panel;
    place();
}

void PromptPanelColumn::setPanel(Card*& frame, QWidget* panel) {
    delete frame;
    frame = nullptr;
    if (panel) {
        frame = new Card(Card::box(ColorRole::panel, ColorRole::border, radius), this);
        auto* layout = new QVBoxLayout(frame);
        layout->setContentsMargins(edge, edge, edge, edge);
        layout->addWidget(panel);
        frame->show();
    }
    updateGeometry();
    place();
}

void PromptPanelColumn::setVariablesCollapsed(bool collapsed) {
    PanelState wanted = state;
    wanted.isVariablesCollapsed = collapsed;
    foldTo(wanted);
}

void PromptPanelColumn::setLexiwellCollapsed(bool collapsed) {
    PanelState wanted = state;
    wanted.isLexiwellCollapsed = collapsed;
    foldTo(wanted);
}

void PromptPanelColumn::foldTo(const PanelState& wanted) {
    // From where the panels stand, which may be in the middle of another fold.
    start = current;
    state = wanted;
    fold.jump(0);
    if (Theme::shared().reducedMotion())
        fold.jump(1);
    else
        fold.to(1);
}

PanelHeights PromptPanelColumn::goal() const {
    return panelHeights(state, height(), gap, {ownHeight(analysis), ownHeight(variables)});
}

void PromptPanelColumn::place() {
    const PanelHeights wanted = goal();
    current = {between(start.analysis, wanted.analysis, fold.value()),
               between(start.variables, wanted.variables, fold.value())};
    if (variables)
        variables->setGeometry(0, 0, width(), current.variables);
    if (analysis)
        analysis->setGeometry(0, current.variables + gap, width(), current.analysis);
}

QSize PromptPanelColumn::sizeHint() const {
    return {idealWidth, minimumSizeHint().height()};
}

QSize PromptPanelColumn::minimumSizeHint() const {
    return {leastWidth, analysis ? 2 * panelLeastHeight + gap : panelLeastHeight};
}

bool PromptPanelColumn::event(QEvent* event) {
    // A panel asks for another height, for instance in a larger font.
    if (event->type() == QEvent::LayoutRequest)
        place();
    return QWidget::event(event);
}

void PromptPanelColumn::resizeEvent(QResizeEvent*) {
    place();
}

} // namespace Quillstacks
