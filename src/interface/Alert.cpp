#include "interface/Alert.h"

#include "interface/Button.h"
#include "interface/Label.h"
#include "interface/Sheet.h"

#include <QHBoxLayout>
#include <QPointer>
#include <QVBoxLayout>

namespace Quillstacks::Alert {
namespace {

constexpr int width = 340;

struct Parts {
    std::unique_ptr<QWidget> content;
    Button* cancel = nullptr;
    Button* confirm = nullptr;
};

Label* makeLabel(const QString& text, TextStyle style, ColorRole role) {
    auto* label = new Label(text, style, role);
    label->setMaximumLines(0);
    label->setTextAlignment(Qt::AlignHCenter);
    return label;
}

Parts build(const Text& text) {
    Parts parts;
    parts.content = std::make_unique<QWidget>();
    parts.content->setFixedWidth(width);
    auto* column = new QVBoxLayout(parts.content.get());
    column->setContentsMargins(24, 24, 24, 20);
    column->setSpacing(0);
    Label* title = makeLabel(text.title, TextStyle::headline, ColorRole::text);
    title->setAbsoluteFont(15, QFont::DemiBold, 20);
    column->addWidget(title);
    if (!text.message.isEmpty()) {
        column->addSpacing(6);
        column->addWidget(makeLabel(text.message, TextStyle::subheadline, ColorRole::text2));
    }
    column->addSpacing(20);
    auto* row = new QHBoxLayout;
    row->setSpacing(10);
    if (!text.cancelTitle.isEmpty()) {
        parts.cancel = new Button(text.cancelTitle, Button::Kind::bordered);
        row->addWidget(parts.cancel, 1);
    }
    const auto kind = text.destructive ? Button::Kind::destructiveFill : Button::Kind::prominent;
    parts.confirm = new Button(text.confirmTitle, kind);
    parts.confirm->setDefault(!text.destructive);
    row->addWidget(parts.confirm, 1);
    for (Button* button : {parts.cancel, parts.confirm}) {
        if (!button)
            continue;
        button->setSize(Button::Size::alert);
        button->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    }
    column->addLayout(row);
    if (text.destructive && parts.cancel)
        parts.cancel->setFocus(Qt::OtherFocusReason);
    return parts;
}

} // namespace

Sheet* show(QWidget* host, const Text& text, std::function<void()> onConfirm, std::function<void()> onCancel) {
    Parts parts = build(text);
    const auto sheet = std::make_shared<QPointer<Sheet>>();
    // The answer is told after the alert is gone, so that it can show the next one.
    const auto answer = [sheet](const std::function<void()>& told) {
        if (!*sheet || (*sheet)->isDismissed())
            return;
        const std::function<void()> kept = told; // the sheet owns what calls this
        (*sheet)->dismiss();
        if (kept)
            kept();
    };
    const auto cancel = [answer, onCancel] { answer(onCancel); };
    QObject::connect(parts.confirm, &QAbstractButton::clicked, parts.confirm,
                     [answer, onConfirm] { answer(onConfirm); });
    if (parts.cancel)
        QObject::connect(parts.cancel, &QAbstractButton::clicked, parts.cancel, cancel);
    Sheet::Options options;
    options.accessibleName = text.message.isEmpty() ? text.title : text.title + QStringLiteral(" ") + text.message;
    options.onEscape = parts.cancel ? std::function<void()>(cancel) : [answer, onConfirm] { answer(onConfirm); };
    *sheet = Sheet::present(host, std::move(parts.content), std::move(options));
    return *sheet;
}

} // namespace Quillstacks::Alert
