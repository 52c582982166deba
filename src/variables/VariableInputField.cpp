#include "VariableInputField.h"

#include "foundation/Text.h"
#include "interface/PlainTextDocument.h"
#include "interface/Symbol.h"
#include "interface/TextArea.h"
#include "interface/TextStyle.h"
#include "interface/Theme.h"

#include <QKeyEvent>
#include <QPainter>
#include <QVBoxLayout>

#include <utility>

namespace Quillstacks {

namespace {

constexpr int symbolSize = 15;
constexpr int symbolGap = 7;
constexpr int labelGap = 5;
constexpr int clearingMilliseconds = 200;

} // namespace

VariableInputField::VariableInputField(const QString& name, const QString& value, QWidget* parent)
    : QWidget(parent), variable(name), currentValue(value), check(this, clearingMilliseconds) {
    setObjectName(QStringLiteral("VariableInputField"));
    check.jump(isFilled() ? 1 : 0);
    buildField(value);
    connect(&Theme::shared(), &Theme::changed, this, &VariableInputField::placeField);
}

VariableInputField::~VariableInputField() = default;

QString VariableInputField::placeholder() const {
    return QStringLiteral("Enter value for ") + variable;
}

void VariableInputField::buildField(const QString& value) {
    field = new TextArea(placeholder(), 1, 5, this);
    field->setAccessibleName(variable);
    describe();
    field->setText(value);
    field->moveCursor(QTextCursor::End);
    field->installEventFilter(this);
    auto* column = new QVBoxLayout(this);
    column->addWidget(field);
    placeField();
    connect(field, &QTextEdit::textChanged, this, &VariableInputField::takeOverText);
    connect(field, &PlainTextEdit::focused, this, [this] {
        if (onFocus)
            onFocus();
    });
}

void VariableInputField::placeField() {
    layout()->setContentsMargins(0, textLineHeight(TextStyle::subheadline) + labelGap, 0, 0);
    update();
}

void VariableInputField::setValue(const QString& value) {
    if (value == currentValue)
        return;
    // As an edit of the field, so that the user can take it back.
    QTextCursor cursor(field->document());
    cursor.select(QTextCursor::Document);
    PlainTextDocument::insert(cursor, value);
    takeOverText();
}

void VariableInputField::takeOverText() {
    QString text = field->text();
    if (text == currentValue)
        return;
    currentValue = std::move(text);
    check.to(isFilled() ? 1 : 0);
    describe();
    Q_EMIT valueChanged(currentValue);
}

// The check mark in words.
void VariableInputField::describe() {
    field->setAccessibleDescription(isFilled() ? QStringLiteral("Filled") : QString());
}

bool VariableInputField::isFilled() const {
    return !Text::isBlank(currentValue);
}

bool VariableInputField::isTextFieldFocused() const {
    return field->hasFocus();
}

bool VariableInputField::isHovered() const {
    return field->underMouse();
}

void VariableInputField::takeFocus() {
    field->setFocus(Qt::OtherFocusReason);
}

bool VariableInputField::handleReturn(int modifiers) {
    if ((modifiers & (Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier)) == 0) {
        if (onSubmit)
            onSubmit();
        return true;
    }
    // The toolkit would put a line separator (U+2028) there for Shift.
    QTextCursor cursor = field->textCursor();
    PlainTextDocument::insert(cursor, QStringLiteral("\n"));
    field->setTextCursor(cursor);
    field->ensureCursorVisible();
    return true;
}

bool VariableInputField::eventFilter(QObject* watched, QEvent* event) {
    if (watched == field && event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        // A Return that is held down, as when it opened the sheet, doesn't run through the form.
        if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter)
            return key->isAutoRepeat() || handleReturn(key->modifiers());
    }
    return QWidget::eventFilter(watched, event);
}

void VariableInputField::paintEvent(QPaintEvent*) {
    const int line = textLineHeight(TextStyle::subheadline);
    const Theme& theme = Theme::shared();
    QPainter painter(this);
    Symbol::paint(painter, QRectF(0, (line - symbolSize) / 2.0, symbolSize, symbolSize),
                  QStringLiteral("curlybraces.square"), theme.color(ColorRole::blue));
    const QFont font = textFont(TextStyle::subheadline, QFont::Medium);
    const int left = symbolSize + symbolGap;
    const int right = width() - symbolSize;
    const int room = right - symbolGap - left;
    painter.setFont(font);
    painter.setPen(theme.color(ColorRole::text));
    painter.drawText(QRect(left, 0, room, line), Qt::AlignLeft | Qt::AlignVCenter,
                     QFontMetrics(font).elidedText(variable, Qt::ElideRight, room));
    if (check.value() <= 0)
        return;
    painter.setOpacity(check.value());
    Symbol::paint(painter, QRectF(right, (line - symbolSize) / 2.0, symbolSize, symbolSize),
                  QStringLiteral("checkmark.circle.fill"), theme.color(ColorRole::green));
}

void VariableInputField::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        placeField();
}

} // namespace Quillstacks
