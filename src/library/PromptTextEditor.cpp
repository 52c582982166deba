#include "PromptTextEditor.h"

#include "interface/Composition.h"
#include "interface/Drawing.h"
#include "interface/Label.h"
#include "interface/TextStyle.h"
#include "interface/Theme.h"
#include "variables/TokenizingTextView.h"
#include "variables/TokenTextView.h"

#include <QKeyEvent>
#include <QPainter>
#include <QTextDocument>
#include <QVBoxLayout>

namespace Quillstacks {
namespace {

constexpr int padding = 12;
constexpr int radius = 12;
constexpr QPoint placeholderPosition(24, 20);

/// 24 at the base size, and in the same measure at others.
int lineHeight() {
    return qRound(textLineHeight(TextStyle::monoBody) * 24 / 20.0);
}

} // namespace

PromptTextEditor::PromptTextEditor(QWidget* parent)
    : QWidget(parent), field(new TokenizingTextView(this)),
      placeholder(new Label(QStringLiteral("Write your prompt…"), TextStyle::monoBody, ColorRole::text2, this)),
      composition(new Composition(field->textView())), hover(this) {
    setObjectName(QStringLiteral("PromptTextEditor"));
    TokenTextView* view = field->textView();
    setFocusProxy(view);
    view->setAccessibleName(QStringLiteral("Prompt text"));
    view->setTabChangesFocus(false);
    view->installEventFilter(this);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(padding, padding, padding, padding);
    layout->addWidget(field);
    placeholder->setAttribute(Qt::WA_TransparentForMouseEvents);
    placeholder->raise();
    applyFont();
    connect(&Theme::shared(), &Theme::changed, this, &PromptTextEditor::applyFont);
    connect(view, &QTextEdit::textChanged, this, &PromptTextEditor::showPlaceholder);
    connect(field, &TokenizingTextView::textChanged, this, &PromptTextEditor::textChanged);
}

const QString& PromptTextEditor::text() const {
    return field->text();
}

bool PromptTextEditor::isComposing() const {
    return composition->isActive();
}

void PromptTextEditor::commitComposition() {
    composition->commit();
}

void PromptTextEditor::setText(const QString& text) {
    field->setText(text);
    showPlaceholder();
}

void PromptTextEditor::showPlaceholder() {
    const TokenTextView* view = field->textView();
    placeholder->setVisible(view->document()->isEmpty() && !view->isComposing());
}

void PromptTextEditor::applyFont() {
    field->textView()->setLineFormat(textFont(TextStyle::monoBody), lineHeight());
    placePlaceholder();
}

void PromptTextEditor::enterEvent(QEnterEvent*) {
    hover.to(1);
}

void PromptTextEditor::leaveEvent(QEvent*) {
    hover.to(0);
}

void PromptTextEditor::resizeEvent(QResizeEvent*) {
    placePlaceholder();
}

void PromptTextEditor::placePlaceholder() {
    placeholder->setGeometry(QRect(placeholderPosition, QSize(width() - 2 * placeholderPosition.x(), lineHeight())));
}

bool PromptTextEditor::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    const auto* key = static_cast<QKeyEvent*>(event);
    const bool isBack = key->key() == Qt::Key_Backtab;
    if (!isBack && (key->key() != Qt::Key_Tab || key->modifiers() != Qt::ControlModifier))
        return false;
    return focusNextPrevChild(!isBack);
}

void PromptTextEditor::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const Theme& theme = Theme::shared();
    drawBox(painter, rect(), radius, theme.color(ColorRole::field), theme.ink(0.1 + 0.1 * hover.value()));
}

} // namespace Quillstacks
